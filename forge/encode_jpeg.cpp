#include "forge/encode.h"

#include "core/trig.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <jpeglib.h>

// Colour, transform and rounding are done here, because the demo's reader is known: it transforms in double
// precision and cuts fractions off where others round. Every target is therefore half a step higher, and black aims
// a little below 0, so that it comes out as exactly 0 beside a lit pixel too. libjpeg supplies the quantisation
// tables, the Huffman coding and the segments.

namespace lumenfold::art {

namespace {

using Block = std::array<double, 64>; // one component of 8 x 8 pixels, or its coefficients, row by row

struct Planes {
    int blocksAcross;
    int blocksDown;
    std::array<std::vector<Block>, 3> components; // Y, Cb, Cr coefficients before quantisation
};

std::array<double, 3> targetOf(const std::uint8_t* rgb) {
    constexpr double half = 0.5;
    constexpr double belowBlack = -4;
    const double r = rgb[0];
    const double g = rgb[1];
    const double b = rgb[2];
    if (rgb[0] == 0 && rgb[1] == 0 && rgb[2] == 0) {
        return {belowBlack - 128, half, half};
    }
    return {0.299 * r + 0.587 * g + 0.114 * b + half - 128, -0.168736 * r - 0.331264 * g + 0.5 * b + half,
            0.5 * r - 0.418688 * g - 0.081312 * b + half};
}

// Forward cosine transform (ITU-T T.81, A.3.3), rows then columns.
Block transformed(const Block& pixels) {
    static const Block basis = [] {
        Block table{};
        for (int frequency = 0; frequency < 8; ++frequency) {
            for (int place = 0; place < 8; ++place) {
                const double scale = frequency == 0 ? std::sqrt(0.125) : 0.5;
                table[static_cast<std::size_t>(frequency * 8 + place)] =
                    scale * trig::cos((2 * place + 1) * frequency * 3.14159265358979 / 16);
            }
        }
        return table;
    }();
    Block half{};
    Block result{};
    for (std::size_t line = 0; line < 8; ++line) {
        for (std::size_t frequency = 0; frequency < 8; ++frequency) {
            for (std::size_t place = 0; place < 8; ++place) {
                half[line * 8 + frequency] += basis[frequency * 8 + place] * pixels[line * 8 + place];
            }
        }
    }
    for (std::size_t column = 0; column < 8; ++column) {
        for (std::size_t frequency = 0; frequency < 8; ++frequency) {
            for (std::size_t place = 0; place < 8; ++place) {
                result[frequency * 8 + column] += basis[frequency * 8 + place] * half[place * 8 + column];
            }
        }
    }
    return result;
}

// Pixels beyond the right and lower edge repeat the last ones.
Planes planesOf(const Bitmap& bitmap) {
    Planes planes{(bitmap.width + 7) / 8, (bitmap.height + 7) / 8, {}};
    for (int row = 0; row < planes.blocksDown; ++row) {
        for (int column = 0; column < planes.blocksAcross; ++column) {
            std::array<Block, 3> pixels;
            for (int i = 0; i < 64; ++i) {
                const int x = std::min(column * 8 + i % 8, bitmap.width - 1);
                const int y = std::min(row * 8 + i / 8, bitmap.height - 1);
                const auto target = targetOf(&bitmap.rgb[(static_cast<std::size_t>(y) * bitmap.width + x) * 3]);
                for (std::size_t component = 0; component < 3; ++component) {
                    pixels[component][static_cast<std::size_t>(i)] = target[component];
                }
            }
            for (std::size_t component = 0; component < 3; ++component) {
                planes.components[component].push_back(transformed(pixels[component]));
            }
        }
    }
    return planes;
}

// libjpeg's default handler would end the program.
void raise(j_common_ptr codec) {
    char message[JMSG_LENGTH_MAX];
    codec->err->format_message(codec, message);
    jpeg_destroy(codec);
    throw std::runtime_error(std::string("JPEG encoder: ") + message);
}

void storeQuantised(jpeg_compress_struct& codec, const Planes& planes, jvirt_barray_ptr* arrays) {
    for (int component = 0; component < 3; ++component) {
        const UINT16* steps = codec.quant_tbl_ptrs[codec.comp_info[component].quant_tbl_no]->quantval;
        const std::vector<Block>& blocks = planes.components[static_cast<std::size_t>(component)];
        for (int row = 0; row < planes.blocksDown; ++row) {
            JBLOCKARRAY stored = codec.mem->access_virt_barray(
                reinterpret_cast<j_common_ptr>(&codec), arrays[component], static_cast<JDIMENSION>(row), 1, TRUE);
            for (int column = 0; column < planes.blocksAcross; ++column) {
                const Block& block = blocks[static_cast<std::size_t>(row) * planes.blocksAcross + column];
                for (std::size_t i = 0; i < 64; ++i) {
                    stored[0][column][i] = static_cast<JCOEF>(std::floor(block[i] / steps[i] + 0.5));
                }
            }
        }
    }
}

std::vector<std::uint8_t> encodeAt(const Bitmap& bitmap, const Planes& planes, int quality) {
    jpeg_error_mgr errors;
    jpeg_compress_struct codec;
    codec.err = jpeg_std_error(&errors);
    errors.error_exit = raise;
    jpeg_create_compress(&codec);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&codec, &buffer, &size);
    codec.image_width = static_cast<JDIMENSION>(bitmap.width);
    codec.image_height = static_cast<JDIMENSION>(bitmap.height);
    codec.input_components = 3;
    codec.in_color_space = JCS_RGB;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, quality, TRUE);
    codec.optimize_coding = TRUE;
    jvirt_barray_ptr arrays[3];
    for (int component = 0; component < 3; ++component) {
        codec.comp_info[component].h_samp_factor = 1;
        codec.comp_info[component].v_samp_factor = 1;
        arrays[component] = codec.mem->request_virt_barray(reinterpret_cast<j_common_ptr>(&codec), JPOOL_IMAGE, TRUE,
                                                           static_cast<JDIMENSION>(planes.blocksAcross),
                                                           static_cast<JDIMENSION>(planes.blocksDown), 1);
    }
    jpeg_write_coefficients(&codec, arrays);
    storeQuantised(codec, planes, arrays);
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    std::vector<std::uint8_t> bytes(buffer, buffer + size);
    std::free(buffer);
    return bytes;
}

} // namespace

std::vector<std::uint8_t> encodeJpeg(const Bitmap& bitmap, std::size_t limit) {
    const Planes planes = planesOf(bitmap);
    int low = 1;
    int high = 100;
    std::vector<std::uint8_t> best;
    while (low <= high) {
        const int quality = (low + high + 1) / 2;
        std::vector<std::uint8_t> bytes = encodeAt(bitmap, planes, quality);
        if (bytes.size() <= limit) {
            best = std::move(bytes);
            low = quality + 1;
        } else {
            high = quality - 1;
        }
    }
    if (best.empty()) {
        throw std::runtime_error("JPEG encoder: the picture does not fit into " + std::to_string(limit) + " bytes");
    }
    return best;
}

} // namespace lumenfold::art
