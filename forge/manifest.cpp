#include "forge/manifest.h"

#include "forge/encode.h"

#include <string>

namespace lumenfold::art {

namespace {

struct Encoder {
    const std::string fileName;
    std::vector<std::uint8_t> operator()(const PictureAsset& asset) const {
        return encodeBitmap(asset.make(), fileName);
    }
    std::vector<std::uint8_t> operator()(const ObjectAsset& asset) const { return encodeLightWaveObject(asset.make()); }
    std::vector<std::uint8_t> operator()(const TuneAsset& asset) const { return writeXm(asset.make()); }
};

} // namespace

std::vector<std::uint8_t> make(const Asset& asset) {
    return std::visit(Encoder{asset.fileName}, asset.form);
}

} // namespace lumenfold::art
