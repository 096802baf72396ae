#include "effects/title_logo.h"

#include "core/kernels.h"

namespace lumenfold {

TitleLogo::TitleLogo() : run(margin + width * height + margin) {}

void TitleLogo::set(const std::vector<Pixel32>& picture) {
    copyPixels(&run[margin], picture.data(), width * height);
}

void TitleLogo::addTo(Pixel32* target) const {
    addSaturated(target, &run[margin], width * height);
}

void TitleLogo::blur() {
    smearQuarters(&run[margin], margin, width * height);
}

} // namespace lumenfold
