#pragma once

namespace lumenfold {

// One float per frame pixel: 1/z plus the bias of the draw that wrote it, larger is nearer. Several scenes put a
// block of their own here while loading; the driver's replaces it before the show. Null before the first.
extern float* depthBuffer;

// Replaces the buffer by a new zeroed one of width x height floats; the old one is freed.
void allocateDepthBuffer(int width, int height);

// Sets the whole buffer to 0.0.
void clearDepthBuffer();

} // namespace lumenfold
