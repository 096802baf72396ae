#pragma once

#include <cstdint>
#include <vector>

namespace lumenfold::film {

// When the show's parts come, found by letting its music run past scenes that draw nothing: a second or two of work
// instead of a minute.
struct ShowPlan {
    struct Stretch {
        std::int32_t part;
        double begin; // seconds of the show
        double end;
    };

    static constexpr double exactness = 0.3; // seconds that the true times may differ

    std::vector<Stretch> stretches; // without the loading bar
    double end = 0.0;               // of the show, or where the plan stops
    bool whole = false;             // whether the show ends there by itself
};

// Plans a show at fps frames a second up to the second given. Ends early once interrupted() is true. Throws
// DynamicError, and std::runtime_error with the music's message.
ShowPlan planShow(std::int32_t fps, double until);

} // namespace lumenfold::film
