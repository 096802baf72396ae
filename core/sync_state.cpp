#include "core/sync_state.h"

namespace lumenfold {

SyncState syncState;

void SyncState::zero() {
    for (SyncByte* byte : {&currentPart, &syncFlag32, &syncFlag33, &unused3, &syncFlag36, &syncFlag37, &unused6,
                           &syncFlag39, &syncFlag59})
        *byte = 0;
    for (SyncByte& byte : unused8)
        byte = 0;
    for (SyncByte& byte : unused12)
        byte = 0;
}

} // namespace lumenfold
