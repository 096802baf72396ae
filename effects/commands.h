#pragma once

#include "core/effect.h"

namespace lumenfold {

inline void nothingToRelease() {}

// The body of a scene's Effect: calls the function that belongs to the command.
inline void follow(EffectCommand command, FrameInfo info, Pixel32* pixels, float time, void (*init)(FrameInfo),
                   void (*render)(FrameInfo, Pixel32*, float), void (*release)() = nothingToRelease) {
    switch (command) {
    case EffectCommand::Init:
        return init(info);
    case EffectCommand::Render:
        return render(info, pixels, time);
    case EffectCommand::Release:
        return release();
    }
}

} // namespace lumenfold
