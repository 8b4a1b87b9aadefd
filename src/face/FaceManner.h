#pragma once

#include "face/FacePose.h"
#include "island/Mood.h"

#include <array>
#include <cmath>

namespace vaxo {

// How the drawn face carries a mood: her pose at rest, whether she blinks, where her eyes wander and
// the beat she moves to.
struct FaceManner {
    enum class Beat {
        None,
        Breath, // slow and endless, in either style
        Pump,   // a breath in on every beat, the antenna lighting up
        Hop,
        Shiver,
    };

    FacePose rest;
    bool blinks = true;
    double glanceStep = 0; // seconds between glances; 0 keeps her eyes where rest puts them
    std::array<double, 7> glances{};
    int glanceCount = 0;
    Beat beat = Beat::None;
    double beatPeriod = 1; // a beat starts every beatPeriod seconds and lasts beatLength
    double beatLength = 0;

    // The place of glance k (any integer), going round the list.
    double glance(double k) const
    {
        const double n = glanceCount;
        return glances[std::size_t(k - std::floor(k / n) * n)];
    }
    // The calm style keeps only the breath of sleep.
    Beat beatIn(bool calm) const { return calm && beat != Beat::Breath ? Beat::None : beat; }

    static const FaceManner &of(Mood mood);
};

} // namespace vaxo
