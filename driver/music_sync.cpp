#include "core/sync_state.h"
#include "driver/music.h"

namespace lumenfold {

void musicSyncCallback(std::uint32_t value, std::uint32_t, std::uint32_t) {
    if (value < 32) {
        syncState.currentPart.increment();
        return;
    }
    switch (value) {
    case 32:
        syncState.syncFlag32 = 1;
        break;
    case 33:
        syncState.syncFlag33 = 1;
        break;
    case 36:
        syncState.syncFlag36 = 1;
        break;
    case 37:
        syncState.syncFlag37 = 1;
        break;
    case 39:
        syncState.syncFlag39 = 1;
        break;
    case 59:
        syncState.syncFlag59 = 1;
        break;
    default:
        break;
    }
}

} // namespace lumenfold
