#include "jpeg_literal.h"

#include "core/trig.h"

#include <algorithm>
#include <cmath>

namespace lumenfold::test {

namespace {

constexpr int zigzag[64] = {0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,  12, 19, 26, 33, 40, 48,
                            41, 34, 27, 20, 13, 6,  7,  14, 21, 28, 35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23,
                            30, 37, 44, 51, 58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

struct Huffman {
    std::int16_t largest[17];
    std::uint16_t smallest[17];
    int first[17];
    std::vector<std::uint8_t> values;
};

struct Plane {
    int identifier;
    int h;
    int v;
    int tq;
    int width;
    int height;
    int dc;
    int ac;
    int predictor = 0;
    int counter = 0;
    std::vector<std::uint8_t> samples;

    int at(int x, int y) const {
        return x < width && y < height ? samples[static_cast<std::size_t>(y * width + x)] : 0;
    }
};

class Decoder {
  public:
    explicit Decoder(const std::vector<std::uint8_t>& theFile) : file(theFile) {
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                for (int v = 0; v < 8; ++v)
                    for (int u = 0; u < 8; ++u) {
                        const double pi = 3.1415926535;
                        const double cu = u == 0 ? 1 / std::sqrt(2.0) : 1;
                        const double cv = v == 0 ? 1 / std::sqrt(2.0) : 1;
                        cosine[y * 8 + x][v * 8 + u] = cu * cv * 0.25 * trig::cos(u * (2 * x + 1) * pi * 0.0625) *
                                                       trig::cos(v * (2 * y + 1) * pi * 0.0625);
                    }
        position = 2;
        while (!done)
            marker();
    }

    LiteralPicture convert() {
        LiteralPicture picture{width, height, {}};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                int values[4] = {0, 128, 128, 0};
                for (std::size_t c = 0; c < planes.size(); ++c)
                    values[c] = bilinear(planes[c], x, y);
                const int Y = values[0];
                const int cb = values[1];
                const int cr = values[2];
                const int r = static_cast<int>(Y + 1.402 * (cr - 128));
                const int g = static_cast<int>(Y - 0.34414 * (cb - 128) - 0.71414 * (cr - 128));
                const int b = static_cast<int>(Y + 1.772 * (cb - 128));
                picture.pixels.push_back(static_cast<Pixel32>(values[3]) << 24 | clamp(r) << 16 | clamp(g) << 8 |
                                         clamp(b));
            }
        return picture;
    }

  private:
    static Pixel32 clamp(int value) { return static_cast<Pixel32>(std::clamp(value, 0, 255)); }

    int byte() { return file.at(position++); }
    int word() {
        const int high = byte();
        return high << 8 | byte();
    }

    void marker() {
        const int code = word();
        if (code == 0xFFD9) {
            done = true;
            return;
        }
        const std::size_t start = position;
        const std::size_t next = start + static_cast<std::size_t>(word());
        if (code == 0xFFC0)
            frame();
        else if (code == 0xFFC4)
            huffmanTable();
        else if (code == 0xFFDB) {
            const int number = byte() & 15;
            for (int k = 0; k < 64; ++k)
                quantisation[number][k] = byte();
        } else if (code == 0xFFDC)
            scanStopped = true;
        else if (code == 0xFFDA) {
            const int count = byte();
            for (int i = 0; i < count; ++i) {
                const int identifier = byte();
                const int tables = byte();
                for (std::size_t c = 0; c < planes.size(); ++c)
                    if (planes[c].identifier == identifier) {
                        order.push_back(c);
                        planes[c].dc = tables >> 4;
                        planes[c].ac = tables & 15;
                    }
            }
            position = next;
            scan();
            return;
        }
        position = next;
    }

    void frame() {
        byte();
        height = word();
        width = word();
        planes.resize(static_cast<std::size_t>(byte()));
        for (Plane& plane : planes) {
            plane.identifier = byte();
            const int factors = byte();
            plane.h = factors >> 4;
            plane.v = factors & 15;
            plane.tq = byte();
            hMax = std::max(hMax, plane.h);
            vMax = std::max(vMax, plane.v);
        }
        for (std::size_t c = 0; c < planes.size(); ++c) {
            planes[c].width = planes[c].h * width / hMax;
            planes[c].height = planes[c].v * height / vMax;
            planes[c].samples.assign(static_cast<std::size_t>(width * height), c == 1 || c == 2 ? 128 : 0);
        }
    }

    void huffmanTable() {
        const int which = byte();
        Huffman& table = huffman[which >> 4][which & 15];
        int counts[17];
        for (int length = 1; length <= 16; ++length)
            counts[length] = byte();
        int code = 0;
        int index = 0;
        for (int length = 1; length <= 16; ++length) {
            table.largest[length] = -1;
            if (counts[length] > 0) {
                table.first[length] = index;
                table.smallest[length] = static_cast<std::uint16_t>(code);
                code += counts[length];
                index += counts[length];
                table.largest[length] = static_cast<std::int16_t>(code - 1);
            }
            code <<= 1;
        }
        table.values.clear();
        for (int i = 0; i < index; ++i)
            table.values.push_back(static_cast<std::uint8_t>(byte()));
    }

    int bit() {
        if (done || scanStopped)
            return 0;
        if (bitsLeft == 0) {
            current = byte();
            while (current == 0xFF) {
                if (file.at(position) == 0x00) {
                    ++position;
                    break;
                }
                --position;
                marker();
                if (done || scanStopped)
                    return 0;
                current = byte();
            }
            bitsLeft = 8;
        }
        --bitsLeft;
        return current >> bitsLeft & 1;
    }
    int bits(int count) {
        int value = 0;
        for (int i = 0; i < count; ++i)
            value = value << 1 | bit();
        return value;
    }
    int extended(int s) {
        int v = bits(s);
        if (s > 0 && v < 1 << (s - 1))
            v = v - (1 << s) + 1;
        return v;
    }
    int decode(const Huffman& table) {
        auto code = static_cast<std::uint16_t>(bit());
        int length = 1;
        while (static_cast<std::int16_t>(code) > table.largest[length]) {
            code = static_cast<std::uint16_t>(code * 2 + bit());
            if (++length > 16)
                return 0;
        }
        const int index = table.first[length] + code - table.smallest[length];
        // The bits that fill the last byte need not be a code; what they stand for lies below the picture.
        return index >= 0 && index < static_cast<int>(table.values.size())
                   ? table.values[static_cast<std::size_t>(index)]
                   : 0;
    }

    void block(Plane& plane, int left, int top) {
        int coefficient[64] = {};
        const int s = decode(huffman[0][plane.dc]);
        plane.predictor += extended(s);
        coefficient[0] = plane.predictor;
        int k = 1;
        while (k < 64) {
            const int rs = decode(huffman[1][plane.ac]);
            const int r = rs >> 4;
            const int category = rs & 15;
            if (category > 0) {
                k += r;
                const int value = extended(category);
                if (k < 64)
                    coefficient[k] = value;
                if (k >= 63)
                    break;
                ++k;
            } else if (r == 15) {
                k += 16;
            } else {
                break;
            }
        }
        int natural[64];
        for (int i = 0; i < 64; ++i)
            natural[zigzag[i]] = coefficient[i] * quantisation[plane.tq][i];
        for (int pixel = 0; pixel < 64; ++pixel) {
            double sum = 0;
            for (int i = 0; i < 64; ++i)
                sum += cosine[pixel][i] * natural[i];
            const int value = static_cast<int>(sum + 128.0);
            const int x = left + pixel % 8;
            const int y = top + pixel / 8;
            if (x < plane.width && y < plane.height)
                plane.samples[static_cast<std::size_t>(y * plane.width + x)] = static_cast<std::uint8_t>(clamp(value));
        }
    }

    void scan() {
        const int across = (((width + 7) >> 3) + hMax - 1) / hMax;
        while (!done && !scanStopped)
            for (const std::size_t c : order) {
                Plane& plane = planes[c];
                const int n = plane.counter++;
                for (int by = 0; by < plane.v; ++by)
                    for (int bx = 0; bx < plane.h; ++bx)
                        block(plane, (n % across * plane.h + bx) * 8, (n / across * plane.v + by) * 8);
            }
    }

    int bilinear(const Plane& plane, int x, int y) const {
        const double sx = static_cast<double>(plane.h * x) / hMax;
        const double sy = static_cast<double>(plane.v * y) / vMax;
        const int ix = plane.h * x / hMax;
        const int iy = plane.v * y / vMax;
        const double fx = sx - ix;
        const double fy = sy - iy;
        return static_cast<int>((plane.at(ix, iy) * (1 - fy) + plane.at(ix, iy + 1) * fy) * (1 - fx) +
                                (plane.at(ix + 1, iy) * (1 - fy) + plane.at(ix + 1, iy + 1) * fy) * fx);
    }

    const std::vector<std::uint8_t>& file;
    std::size_t position = 0;
    bool done = false;
    bool scanStopped = false;
    int width = 0;
    int height = 0;
    int hMax = 1;
    int vMax = 1;
    std::vector<Plane> planes;
    std::vector<std::size_t> order;
    int quantisation[4][64] = {};
    Huffman huffman[2][4] = {};
    int current = 0;
    int bitsLeft = 0;
    double cosine[64][64];
};

} // namespace

LiteralPicture decodeLiterally(const std::vector<std::uint8_t>& file) {
    return Decoder(file).convert();
}

void repairLiterally(LiteralPicture& picture) {
    const auto index = [&](int x, int y) { return static_cast<std::size_t>(y * picture.width + x); };
    for (int x = 0; x < picture.width; ++x)
        picture.pixels[index(x, picture.height - 1)] = picture.pixels[index(x, picture.height - 2)];
    for (int y = 0; y < picture.height; ++y)
        picture.pixels[index(picture.width - 1, y)] = picture.pixels[index(picture.width - 2, y)];
}

} // namespace lumenfold::test
