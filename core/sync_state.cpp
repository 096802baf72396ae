#include "core/sync_state.h"

namespace lumenfold {

SyncState syncState;

void SyncState::zero() {
    currentPart = syncFlag32 = syncFlag33 = unused3 = syncFlag36 = syncFlag37 = unused6 = syncFlag39 = 0;
    for (SyncByte& byte : unused8)
        byte = 0;
    syncFlag59 = 0;
    for (SyncByte& byte : unused12)
        byte = 0;
}

} // namespace lumenfold
