#pragma once

#include <cstdint>

// The music layer, implemented by the platform: plays one XM module in the background and reports its sync
// commands. Operations that fail return false, null or 0 and leave the cause with MIDASgetLastError.

namespace lumenfold {

struct MIDASmoduleData;
using MIDASmodule = MIDASmoduleData*;
using MIDASmodulePlayHandle = std::uint32_t; // 0: none

// Called from the playback thread when a sync command is heard, in order. value: the command's parameter; order and
// row: where in the tune it stands.
using MIDASsyncCallback = void (*)(std::uint32_t value, std::uint32_t order, std::uint32_t row);

// Options, poll rate (times a second) and channels are wishes; a layer may choose by itself.
bool MIDASstartup();
bool MIDASsetOption(std::int32_t option, std::uint32_t value);
bool MIDASinit();
bool MIDASstartBackgroundPlay(std::uint32_t pollRate);
bool MIDASopenChannels(std::int32_t count);

// The module belongs to the layer until MIDASfreeModule.
MIDASmodule MIDASloadModule(const char* fileName);
MIDASmodulePlayHandle MIDASplayModule(MIDASmodule module, bool loop);

// A null callback takes the installed one away.
bool MIDASsetMusicSyncCallback(MIDASmodulePlayHandle handle, MIDASsyncCallback callback);

bool MIDASstopModule(MIDASmodulePlayHandle handle);
bool MIDASfreeModule(MIDASmodule module);
bool MIDASstopBackgroundPlay();
bool MIDASclose();

std::int32_t MIDASgetLastError();

// The text stays valid until the next operation.
const char* MIDASgetErrorMessage(std::int32_t error);

} // namespace lumenfold
