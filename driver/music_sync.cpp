#include "core/sync_state.h"
#include "core/sync_values.h"
#include "driver/music.h"

namespace lumenfold {

void musicSyncCallback(std::uint32_t value, std::uint32_t, std::uint32_t) {
    if (value < sync::firstFlag) {
        syncState.currentPart.increment();
        return;
    }
    switch (value) {
    case sync::pulse:
        syncState.syncFlag32 = 1;
        break;
    case sync::fadeOut:
        syncState.syncFlag33 = 1;
        break;
    case sync::hall:
        syncState.syncFlag36 = 1;
        break;
    case sync::hit:
        syncState.syncFlag37 = 1;
        break;
    case sync::dissolve:
        syncState.syncFlag39 = 1;
        break;
    case sync::swap:
        syncState.syncFlag59 = 1;
        break;
    default:
        break;
    }
}

} // namespace lumenfold
