#pragma once

#include "bench/report.h"

// The parts of the table. Working directory: the show's folder.

namespace lumenfold::bench {

// Every scene and phase at 60 frames a second: median and 99th percentile of the Render calls.
void measureScenes(Report& report, bool peers);

// The fillers over right triangles, covered megapixels a second; peer: llvmpipe on one thread.
void measureFillers(Report& report, bool peers);

// Ray field and transformation.
void measureRenderer(Report& report, bool peers);

// The passes over full frames; peer: a memcpy that reads and writes as many bytes.
void measureKernels(Report& report, bool peers);

// The JPEG reader over all of the folder's files; peers: libjpeg-turbo and stb_image.
void measureJpeg(Report& report, bool peers);

} // namespace lumenfold::bench
