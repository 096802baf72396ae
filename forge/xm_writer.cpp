#include "forge/xm_writer.h"

#include <algorithm>
#include <stdexcept>

// The Extended Module format, version 1.04, as documented with the tracker that introduced it: a header, packed
// patterns, then each instrument with its sample. All numbers little-endian.

namespace lumenfold::art {
namespace {

class Bytes {
  public:
    void u8(int value) { data.push_back(static_cast<std::uint8_t>(value)); }
    void u16(int value) {
        u8(value & 0xff);
        u8(value >> 8 & 0xff);
    }
    void u32(std::size_t value) {
        u16(static_cast<int>(value & 0xffff));
        u16(static_cast<int>(value >> 16 & 0xffff));
    }
    void zeros(std::size_t count) { data.insert(data.end(), count, 0); }
    // Cut or padded to the field's length.
    void text(const std::string& value, std::size_t length, char padding = '\0') {
        for (std::size_t i = 0; i < length; ++i) {
            u8(i < value.size() ? value[i] : padding);
        }
    }
    void append(const Bytes& other) { data.insert(data.end(), other.data.begin(), other.data.end()); }

    std::vector<std::uint8_t> data;
};

void require(bool condition, const std::string& what) {
    if (!condition) {
        throw std::runtime_error("XM: " + what);
    }
}

void writeHeader(Bytes& out, const XmSong& song) {
    constexpr int headerSize = 276; // from this field to the end of the order table
    constexpr std::size_t orderRoom = 256;
    out.text("Extended Module: ", 17);
    out.text(song.name, 20, ' ');
    out.u8(0x1a);
    out.text("lumenfold forge", 20, ' ');
    out.u16(0x104);
    out.u32(headerSize);
    out.u16(static_cast<int>(song.order.size()));
    out.u16(song.restart);
    out.u16(song.channels);
    out.u16(static_cast<int>(song.patterns.size()));
    out.u16(static_cast<int>(song.instruments.size()));
    out.u16(1); // linear frequency table
    out.u16(song.speed);
    out.u16(song.tempo);
    for (std::size_t i = 0; i < orderRoom; ++i) {
        out.u8(i < song.order.size() ? song.order[i] : 0);
    }
}

// A first byte with bit 7 set tells which of the five fields follow.
void packCell(Bytes& out, const XmCell& cell) {
    const std::array<std::uint8_t, 5> fields{cell.note, cell.instrument, cell.volume, cell.effect, cell.parameter};
    int present = 0x80;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        present |= fields[i] != 0 ? 1 << i : 0;
    }
    out.u8(present);
    for (const std::uint8_t field : fields) {
        if (field != 0) {
            out.u8(field);
        }
    }
}

void writePattern(Bytes& out, const XmPattern& pattern, int channels) {
    constexpr int headerSize = 9;
    require(pattern.rows >= 1 && pattern.rows <= 256, "a pattern has 1 to 256 rows");
    require(pattern.cells.size() == static_cast<std::size_t>(pattern.rows * channels),
            "a pattern's cells do not fill its rows");
    Bytes packed;
    for (const XmCell& cell : pattern.cells) {
        packCell(packed, cell);
    }
    require(packed.data.size() <= 0xffff, "a packed pattern exceeds 65535 bytes");
    out.u32(headerSize);
    out.u8(0); // packing type
    out.u16(pattern.rows);
    out.u16(static_cast<int>(packed.data.size()));
    out.append(packed);
}

void writeEnvelopes(Bytes& out, const XmInstrument& instrument) {
    constexpr std::size_t room = 12;
    const auto& points = instrument.volumeEnvelope;
    require(points.size() <= room, "an envelope has at most 12 points");
    for (const XmEnvelopePoint& point : points) {
        out.u16(point.tick);
        out.u16(point.value);
    }
    out.zeros((room - points.size()) * 4);
    out.zeros(room * 4); // no panning envelope
    const bool sustained = instrument.sustainPoint >= 0;
    out.u8(static_cast<int>(points.size()));
    out.u8(0);
    out.u8(sustained ? instrument.sustainPoint : 0);
    out.zeros(5); // volume loop, then the panning envelope's sustain and loop
    out.u8((points.empty() ? 0 : 1) | (sustained ? 2 : 0));
    out.u8(0);
}

void writeSampleHeader(Bytes& out, const XmInstrument& instrument, const XmZone& zone) {
    constexpr int sixteenBit = 16;
    constexpr int forwardLoop = 1;
    const bool loops = instrument.loopLength > 0;
    out.u32(zone.samples.size() * 2);
    out.u32(static_cast<std::size_t>(instrument.loopStart) * 2);
    out.u32(static_cast<std::size_t>(instrument.loopLength) * 2);
    out.u8(instrument.volume);
    out.u8(zone.fineTune);
    out.u8(sixteenBit | (loops ? forwardLoop : 0));
    out.u8(instrument.panning);
    out.u8(zone.relativeNote);
    out.u8(0);
    out.text(instrument.name, 22);
}

void writeSampleData(Bytes& out, const std::vector<std::int16_t>& samples) {
    int previous = 0;
    for (const std::int16_t sample : samples) {
        out.u16(sample - previous);
        previous = sample;
    }
}

// Which sample each of the 96 notes plays.
void writeKeyMap(Bytes& out, const XmInstrument& instrument) {
    constexpr int notes = 96;
    for (int note = 1; note <= notes; ++note)
        out.u8(static_cast<int>(std::count_if(instrument.zones.begin(), instrument.zones.end(),
                                              [&](const XmZone& zone) { return zone.lowestNote <= note; })));
}

void requireSound(const XmInstrument& instrument) {
    constexpr std::size_t mostZones = 15;
    const std::string name = "instrument \"" + instrument.name + "\" ";
    const auto fits = [&](const std::vector<std::int16_t>& samples) {
        require(!samples.empty(), name + "has no sample");
        require(instrument.loopStart >= 0 && instrument.loopLength >= 0 &&
                    static_cast<std::size_t>(instrument.loopStart) + static_cast<std::size_t>(instrument.loopLength) <=
                        samples.size(),
                name + "loops past its end");
    };
    fits(instrument.samples);
    require(instrument.zones.size() <= mostZones, name + "has more than 16 samples");
    int lowest = 1;
    for (const XmZone& zone : instrument.zones) {
        fits(zone.samples);
        require(zone.lowestNote > lowest && zone.lowestNote <= 96, name + "has zones out of order");
        lowest = zone.lowestNote;
    }
}

void writeInstrument(Bytes& out, const XmInstrument& instrument) {
    constexpr int headerSize = 263;
    constexpr int sampleHeaderSize = 40;
    requireSound(instrument);
    std::vector<XmZone> zones = {{1, instrument.samples, instrument.relativeNote, instrument.fineTune}};
    zones.insert(zones.end(), instrument.zones.begin(), instrument.zones.end());
    out.u32(headerSize);
    out.text(instrument.name, 22);
    out.u8(0); // type
    out.u16(static_cast<int>(zones.size()));
    out.u32(sampleHeaderSize);
    writeKeyMap(out, instrument);
    writeEnvelopes(out, instrument);
    out.u8(0); // vibrato wave: sine
    out.u8(instrument.vibratoSweep);
    out.u8(instrument.vibratoDepth);
    out.u8(instrument.vibratoRate);
    out.u16(instrument.fadeOut);
    out.zeros(22);
    for (const XmZone& zone : zones)
        writeSampleHeader(out, instrument, zone);
    for (const XmZone& zone : zones)
        writeSampleData(out, zone.samples);
}

} // namespace

std::vector<std::uint8_t> writeXm(const XmSong& song) {
    require(song.channels >= 1 && song.channels <= 32, "1 to 32 channels");
    require(!song.order.empty() && song.order.size() <= 256, "1 to 256 orders");
    require(song.patterns.size() <= 256, "at most 256 patterns");
    require(song.instruments.size() <= 128, "at most 128 instruments");
    require(song.restart >= 0 && static_cast<std::size_t>(song.restart) < song.order.size(),
            "the restart lies past the last order");
    require(*std::max_element(song.order.begin(), song.order.end()) < song.patterns.size(),
            "the order table names a pattern that is not there");
    Bytes out;
    writeHeader(out, song);
    for (const XmPattern& pattern : song.patterns) {
        writePattern(out, pattern, song.channels);
    }
    for (const XmInstrument& instrument : song.instruments) {
        writeInstrument(out, instrument);
    }
    return std::move(out.data);
}

} // namespace lumenfold::art
