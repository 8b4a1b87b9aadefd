// IslandFace: when her next frame is due.
#include "face/IslandFace.h"

#include "face/FaceManner.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vaxo {
namespace {

constexpr double kQuick = 1.0 / 30; // frame step of blinks, glances and her start
constexpr double kBeat = 1.0 / 20;  // frame step of beats and hops
constexpr double kBreath = 0.1;     // frame step of the slow breath of sleep
constexpr double kSettle = 1e-6;    // the last frame of a movement falls just after it, surely at rest

} // namespace

double IslandFace::nextFrame(Mood mood, bool calm, double t, double changedAt)
{
    const FaceManner &m = FaceManner::of(mood);
    double next = std::numeric_limits<double>::infinity();
    // A movement from start for length seconds, drawn every step.
    const auto movement = [&](double start, double length, double step) {
        const double end = start + length + kSettle;
        if (t < start)
            next = std::min(next, start);
        else if (t < end)
            next = std::min({next, t + step, end});
    };
    if (m.blinks) {
        const double n = std::floor(t / FaceManner::kBlinkPeriod);
        for (double period : {n, n + 1}) {
            const double start = period * FaceManner::kBlinkPeriod + 3.2 + 1.2 * FaceManner::periodHash(period);
            movement(start, FaceManner::kBlinkLength, kQuick);
            if (FaceManner::periodHash(period + 7919) < 0.4)
                movement(start + 0.3 + 0.12 * FaceManner::periodHash(period), FaceManner::kBlinkLength, kQuick);
        }
    }
    if (m.glanceStep > 0) {
        // The next glance that goes somewhere; staying in place is no movement.
        const double k = std::floor(t / m.glanceStep);
        for (int i = 0; i <= m.glanceCount; ++i) {
            if (m.glance(k + i) != m.glance(k + i - 1)) {
                movement((k + i) * m.glanceStep, FaceManner::kGlance, kQuick);
                if ((k + i) * m.glanceStep > t)
                    break;
            }
        }
    }
    const FaceManner::Beat beat = m.beatIn(calm);
    if (beat == FaceManner::Beat::Breath) {
        next = std::min(next, t + kBreath);
    } else if (beat != FaceManner::Beat::None) {
        const double k = std::floor(t / m.beatPeriod);
        movement(k * m.beatPeriod, m.beatLength, kBeat);
        movement((k + 1) * m.beatPeriod, m.beatLength, kBeat);
    }
    movement(changedAt, kStartLength, kQuick);
    return next;
}

} // namespace vaxo
