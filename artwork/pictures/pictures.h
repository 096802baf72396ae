#pragma once

#include "forge/picture.h"

// One function per full-screen picture; the manifest gives their files.

namespace lumenfold::art {

Bitmap makeOilPool();
Bitmap makeMachineCore();
Bitmap makeFireWreath();
Bitmap makeMasonry();
Bitmap makeIvoryStage();
Bitmap makeForgeDoor();

} // namespace lumenfold::art
