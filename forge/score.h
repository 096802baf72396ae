#pragma once

#include <string>
#include <vector>

#include "artwork/tunes/sync.h"
#include "forge/xm_writer.h"

namespace lumenfold::art {

// A tune as one long grid of rows by channels. Parts of the music are written through a `Stage`, which counts rows
// from the start of a section; `toSong` cuts the grid into patterns.
class Score {
  public:
    Score(const std::vector<Section>& sections, int channels);

    XmCell& cell(int row, int channel);
    int rows() const { return rowCount; }
    int channels() const { return channelCount; }
    const std::vector<Section>& sections() const { return parts; }

    // Patterns of at most four bars that never cross a section's border; equal ones are stored once. Sync commands
    // and tempo changes of the sections are written into the effect columns of the first channels, where they must
    // be free. Instruments that no note plays are left out. The tune restarts at the named section.
    XmSong toSong(const std::string& name, const std::string& restartSection,
                  const std::vector<XmInstrument>& instruments);

  private:
    void writeSections();
    std::vector<XmInstrument> keepPlayed(const std::vector<XmInstrument>& instruments);

    std::vector<Section> parts;
    int channelCount;
    int rowCount;
    std::vector<XmCell> cells;
};

// Note numbers: C-4 is 49. Names as trackers print them, "C#4", "A-5", or short, "A5".
int noteNumber(const std::string& name);

} // namespace lumenfold::art
