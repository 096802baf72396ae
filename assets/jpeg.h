#pragma once

#include "assets/jpeg_frame.h"
#include "assets/jpeg_huffman.h"
#include "core/frame_info.h"
#include "core/pixel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// JPEG files (ITU-T T.81): sequential Huffman coding, 8-bit samples, one scan that holds every component, at most
// four components, of which a single one has the sampling factors 1 x 1 (with others its blocks are not taken in T.81's
// order). The inverse transform is a direct sum in double precision and chroma is sampled bilinearly without a
// half-sample offset, so pictures differ by a few steps from other decoders' and never between machines.

namespace lumenfold {

// Reads a picture of exactly target.width x target.height pixels into destination (owned by the caller); the last
// column and row are copies of their neighbours. A file that ends early keeps what was decoded, black behind it; one
// without a frame header leaves the block as it was. sourceWidth, sourceHeight and resample are not read.
// Throws DynamicError: the file name when the file cannot be opened, "FILE: reason" when it is of a kind that is not
// supported, damaged in its headers or of another size. Nothing is written then.
void readJpegFile(const char* fileName, Pixel32* destination, std::int32_t sourceWidth, std::int32_t sourceHeight,
                  FrameInfo target, std::int32_t resample);

// The same from a file that is in memory; fileName is for the messages.
void decodeJpegFile(const std::uint8_t* data, std::size_t size, const std::string& fileName, Pixel32* destination,
                    FrameInfo target);

// Decodes one file. The data must stay valid during construction only.
class JpegDecoder {
  public:
    // Decodes all of it into component planes. Only a frame of width x height is accepted, and nothing is allocated
    // for any other. Throws JpegError.
    JpegDecoder(const std::uint8_t* data, std::size_t size, std::int32_t width, std::int32_t height);

    // Writes the picture, width x height pixels (the fourth component in the top byte). Returns false and writes
    // nothing when the file held no frame or the frame no component.
    bool convert(Pixel32* destination) const;

  private:
    struct Segment {
        const std::uint8_t* begin;
        const std::uint8_t* end;
    };

    void parse();
    void readMarker(std::uint8_t marker);
    Segment takeSegment();
    void readHuffmanTables(Segment segment);
    void readQuantisationTables(Segment segment);
    void readFrame(Segment segment);
    void readScan(Segment segment);
    void checkTables() const;
    void decodeScan();
    bool decodeUnit(JpegBitReader& reader, std::size_t unit);

    const std::uint8_t* position;
    const std::uint8_t* end;
    std::int32_t expectedWidth;
    std::int32_t expectedHeight;
    bool done = false;               // no more segments: end marker, end of the data, or the scan is decoded
    std::size_t restartInterval = 0; // minimum coded units between restart markers, 0: none
    JpegFrame frame;
    std::vector<JpegScanComponent> scan;
    std::array<JpegQuantisation, 4> quantisation;
    std::array<JpegHuffmanTable, 4> dcTables;
    std::array<JpegHuffmanTable, 4> acTables;
};

} // namespace lumenfold
