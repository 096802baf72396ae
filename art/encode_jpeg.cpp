#include "art/encode.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <jpeglib.h>

namespace lumenfold::art {

namespace {

// libjpeg's default handler would end the program.
void raise(j_common_ptr codec) {
    char message[JMSG_LENGTH_MAX];
    codec->err->format_message(codec, message);
    jpeg_destroy(codec);
    throw std::runtime_error(std::string("JPEG encoder: ") + message);
}

std::vector<std::uint8_t> encodeAt(const Bitmap& bitmap, int quality) {
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
    codec.dct_method = JDCT_ISLOW; // integers: the same file on every machine
    codec.optimize_coding = TRUE;
    for (int i = 0; i < codec.num_components; ++i) {
        codec.comp_info[i].h_samp_factor = 1;
        codec.comp_info[i].v_samp_factor = 1;
    }
    jpeg_start_compress(&codec, TRUE);
    while (codec.next_scanline < codec.image_height) {
        const std::size_t offset = static_cast<std::size_t>(codec.next_scanline) * bitmap.width * 3;
        JSAMPROW row = const_cast<JSAMPROW>(&bitmap.rgb[offset]); // read only; the interface lacks the const
        jpeg_write_scanlines(&codec, &row, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    std::vector<std::uint8_t> bytes(buffer, buffer + size);
    std::free(buffer);
    return bytes;
}

} // namespace

std::vector<std::uint8_t> encodeJpeg(const Bitmap& bitmap, std::size_t limit) {
    int low = 1;
    int high = 100;
    std::vector<std::uint8_t> best;
    while (low <= high) {
        const int quality = (low + high + 1) / 2;
        std::vector<std::uint8_t> bytes = encodeAt(bitmap, quality);
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
