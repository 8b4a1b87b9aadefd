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

    // Timing that her look and her frame clock share, in seconds.
    static constexpr double kBlinkPeriod = 5.5;
    static constexpr double kBlinkLength = 0.26;
    static constexpr double kGlance = 0.1; // her eyes move to the next place this fast
    // The hash of blink period n, in [0, 1): when in the period she blinks, and whether twice.
    static double periodHash(double n)
    {
        const double x = std::sin(n * 12.9898) * 43758.5453;
        return x - std::floor(x);
    }
};

} // namespace vaxo
