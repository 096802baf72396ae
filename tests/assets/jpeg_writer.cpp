#include "jpeg_writer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <random>

namespace lumenfold::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

// Counts of codes by length, and the values in the order of their codes.
struct Table {
    std::array<std::uint8_t, 16> counts;
    Bytes values;

    std::map<int, std::pair<unsigned, int>> codes() const {
        std::map<int, std::pair<unsigned, int>> result;
        unsigned code = 0;
        std::size_t index = 0;
        for (int length = 1; length <= 16; ++length, code <<= 1)
            for (int i = 0; i < counts[static_cast<std::size_t>(length - 1)]; ++i)
                result[values[index++]] = {code++, length};
        return result;
    }
};

Table dcTable(int number) {
    Table table{{0, 1, 3, 3, 2, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0}, {}};
    for (int i = 0; i < 12; ++i)
        table.values.push_back(static_cast<std::uint8_t>((i + number * 5) % 12));
    return table;
}

// Every run with every category up to 10, the long run and the end of the block, in a shuffled order.
Table acTable(int number) {
    Table table{{0, 0, 4, 0, 6, 0, 0, 20, 0, 40, 0, 40, 0, 0, 0, 52}, {}};
    for (int run = 0; run < 16; ++run)
        for (int category = 1; category <= 10; ++category)
            table.values.push_back(static_cast<std::uint8_t>(run << 4 | category));
    table.values.push_back(0x00);
    table.values.push_back(0xF0);
    std::mt19937 random(static_cast<unsigned>(number) + 77);
    for (std::size_t i = table.values.size() - 1; i > 0; --i)
        std::swap(table.values[i], table.values[random() % (i + 1)]);
    return table;
}

class Writer {
  public:
    explicit Writer(const JpegRecipe& theRecipe) : recipe(theRecipe), random(theRecipe.seed) {}

    Bytes write() {
        marker(0xD8);
        if (recipe.extraSegments) {
            segment(0xE0, {'J', 'F', 'I', 'F', 0, 1, 1, 0, 0, 1, 0, 1, 0, 0});
            segment(0xE5, Bytes(300, 0xFF));
            segment(0xFE, {0xFF, 0xD9});
            bytes.insert(bytes.end(), 3, 0xFF);
        }
        tables();
        frame();
        if (recipe.restartInterval > 0)
            segment(0xDD, {0, static_cast<std::uint8_t>(recipe.restartInterval)});
        scanHeader();
        scan();
        marker(0xD9);
        return std::move(bytes);
    }

  private:
    void marker(std::uint8_t code) {
        bytes.push_back(0xFF);
        bytes.push_back(code);
    }
    void segment(std::uint8_t code, const Bytes& content) {
        marker(code);
        bytes.push_back(static_cast<std::uint8_t>((content.size() + 2) >> 8));
        bytes.push_back(static_cast<std::uint8_t>(content.size() + 2));
        bytes.insert(bytes.end(), content.begin(), content.end());
    }
    // One segment for each table, or one for all of them.
    void segments(std::uint8_t code, const std::vector<Bytes>& contents) {
        Bytes joined;
        for (const Bytes& content : contents) {
            if (!recipe.oneSegment)
                segment(code, content);
            joined.insert(joined.end(), content.begin(), content.end());
        }
        if (recipe.oneSegment)
            segment(code, joined);
    }

    void tables() {
        std::vector<Bytes> quantisation;
        for (int number = 0; number < 2; ++number) {
            Bytes content = {static_cast<std::uint8_t>((recipe.wideQuantisation ? 0x10 : 0) | number)};
            for (int k = 0; k < 64; ++k) {
                if (recipe.wideQuantisation)
                    content.push_back(0);
                content.push_back(static_cast<std::uint8_t>(1 + (k * (3 + number)) % 40));
            }
            quantisation.push_back(content);
        }
        segments(0xDB, quantisation);
        std::vector<Bytes> huffman;
        for (int number = 0; number < 2; ++number)
            for (int tableClass = 0; tableClass < 2; ++tableClass) {
                const Table table = tableClass == 0 ? dcTable(number) : acTable(number);
                Bytes content = {static_cast<std::uint8_t>(tableClass << 4 | number)};
                content.insert(content.end(), table.counts.begin(), table.counts.end());
                content.insert(content.end(), table.values.begin(), table.values.end());
                huffman.push_back(content);
            }
        segments(0xC4, huffman);
    }

    void frame() {
        Bytes content = {8,
                         static_cast<std::uint8_t>(recipe.height >> 8),
                         static_cast<std::uint8_t>(recipe.height),
                         static_cast<std::uint8_t>(recipe.width >> 8),
                         static_cast<std::uint8_t>(recipe.width),
                         static_cast<std::uint8_t>(recipe.components.size())};
        for (std::size_t c = 0; c < recipe.components.size(); ++c) {
            content.push_back(static_cast<std::uint8_t>(c + 1));
            content.push_back(
                static_cast<std::uint8_t>(recipe.components[c].horizontal << 4 | recipe.components[c].vertical));
            content.push_back(c == 0 ? 0 : 1);
        }
        segment(0xC0, content);
    }

    void scanHeader() {
        Bytes content = {static_cast<std::uint8_t>(recipe.components.size())};
        for (std::size_t c = 0; c < recipe.components.size(); ++c) {
            content.push_back(static_cast<std::uint8_t>(c + 1));
            content.push_back(c == 0 ? 0x00 : 0x11);
        }
        content.insert(content.end(), {0, 63, 0});
        segment(0xDA, content);
    }

    void put(unsigned value, int count) {
        for (int i = count - 1; i >= 0; --i) {
            current = static_cast<std::uint8_t>(current << 1 | (value >> i & 1));
            if (++filled == 8) {
                bytes.push_back(current);
                if (current == 0xFF)
                    bytes.push_back(0);
                filled = 0;
            }
        }
    }
    void align() {
        while (filled != 0)
            put(1, 1);
    }
    void putValue(int value, int category) {
        put(static_cast<unsigned>(value < 0 ? value + (1 << category) - 1 : value), category);
    }
    int randomValue(int category) { // of exactly that category
        if (category == 0)
            return 0;
        const int size = (1 << (category - 1)) + static_cast<int>(random() % (1u << (category - 1)));
        return random() % 2 ? size : -size;
    }

    void block(int number) {
        const auto dc = dcTable(number).codes();
        const auto ac = acTable(number).codes();
        const int dcCategory = static_cast<int>(random() % 8);
        put(dc.at(dcCategory).first, dc.at(dcCategory).second);
        putValue(randomValue(dcCategory), dcCategory);
        int run = 0;
        int last = 0;
        for (int k = 1; k < 64; ++k) {
            if (static_cast<int>(random() % 100) >= recipe.density) {
                ++run;
                continue;
            }
            for (; run >= 16; run -= 16)
                put(ac.at(0xF0).first, ac.at(0xF0).second);
            const int category =
                random() % 8 == 0 ? 1 + static_cast<int>(random() % 10) : 1 + static_cast<int>(random() % 3);
            const auto& code = ac.at(run << 4 | category);
            put(code.first, code.second);
            putValue(randomValue(category), category);
            run = 0;
            last = k;
        }
        if (last != 63)
            put(ac.at(0x00).first, ac.at(0x00).second);
    }

    void scan() {
        int horizontalMax = 1;
        int verticalMax = 1;
        for (const JpegFactors& factors : recipe.components) {
            horizontalMax = std::max(horizontalMax, factors.horizontal);
            verticalMax = std::max(verticalMax, factors.vertical);
        }
        const int across = (recipe.width + 8 * horizontalMax - 1) / (8 * horizontalMax);
        const int down = (recipe.height + 8 * verticalMax - 1) / (8 * verticalMax);
        for (int unit = 0; unit < across * down; ++unit) {
            if (recipe.restartInterval > 0 && unit > 0 && unit % recipe.restartInterval == 0) {
                align();
                marker(static_cast<std::uint8_t>(0xD0 + (unit / recipe.restartInterval - 1) % 8));
            }
            for (std::size_t c = 0; c < recipe.components.size(); ++c)
                for (int i = 0; i < recipe.components[c].horizontal * recipe.components[c].vertical; ++i)
                    block(c == 0 ? 0 : 1);
        }
        align();
    }

    const JpegRecipe& recipe;
    std::mt19937 random;
    Bytes bytes;
    std::uint8_t current = 0;
    int filled = 0;
};

} // namespace

std::vector<std::uint8_t> makeJpeg(const JpegRecipe& recipe) {
    return Writer(recipe).write();
}

std::size_t entropyStart(const std::vector<std::uint8_t>& file) {
    const std::array<std::uint8_t, 2> startOfScan = {0xFF, 0xDA};
    const auto found = std::find_end(file.begin(), file.end(), startOfScan.begin(), startOfScan.end());
    const auto position = static_cast<std::size_t>(found - file.begin()) + 2;
    return position + static_cast<std::size_t>(file[position] << 8 | file[position + 1]);
}

} // namespace lumenfold::test
