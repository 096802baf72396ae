#pragma once

#include "bench/filler_load.h"

#include <cstdint>
#include <memory>
#include <string>

namespace lumenfold::bench {

// The triangles of FillerLoad drawn by Mesa's llvmpipe on the calling thread: perspective-textured, nearest texel,
// depth-tested and depth-written, all of one picture in one call from a vertex buffer, opaque or added.
class LlvmpipeLoad {
  public:
    LlvmpipeLoad(int side, bool add);
    ~LlvmpipeLoad();
    LlvmpipeLoad(const LlvmpipeLoad&) = delete;
    LlvmpipeLoad& operator=(const LlvmpipeLoad&) = delete;

    // Returns when the pixels are in memory.
    void drawPicture();
    std::int64_t coveredPixels() const;
    std::string renderer() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace lumenfold::bench
