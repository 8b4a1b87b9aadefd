#include "face/IslandFace.h"

#include "face/FaceManner.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vaxo {
namespace {

constexpr double kBlinkPeriod = FaceManner::kBlinkPeriod;
constexpr double kBlinkLength = FaceManner::kBlinkLength;
constexpr double kClosing = 0.085;
constexpr double kOpening = 0.175;
constexpr double kGlance = FaceManner::kGlance;
constexpr double kPi = std::numbers::pi;

// One blink's openness, x seconds after it began.
double blinkShape(double x)
{
    if (x < 0 || x >= kBlinkLength)
        return 1;
    if (x < kClosing) {
        const double k = x / kClosing;
        return 1 - k * k;
    }
    const double k = 1 - (x - kClosing) / kOpening;
    return 1 - k * k;
}

double smoothstep(double k)
{
    return k * k * (3 - 2 * k);
}

// Where she looks along x at t: each glance step her eyes move to the next place in the list.
double glanceAt(const FaceManner &m, double t)
{
    const double k = std::floor(t / m.glanceStep);
    const double x = t - k * m.glanceStep;
    const double to = m.glance(k);
    return x < kGlance ? m.glance(k - 1) + (to - m.glance(k - 1)) * smoothstep(x / kGlance) : to;
}

// Applies a beat k (0..1) of the way through.
void applyBeat(FaceManner::Beat beat, double k, FacePose &p)
{
    const double s = std::sin(kPi * k);
    switch (beat) {
    case FaceManner::Beat::Pump: // a quick breath in, the antenna lighting up with it
        p.squash -= 0.07 * s;
        p.glow = s;
        break;
    case FaceManner::Beat::Hop: // up for most of it, a squash on landing
        if (k < 0.7) {
            p.lift = 6 * std::sin(kPi * k / 0.7);
            p.squash -= 0.03 * std::sin(kPi * k / 0.7);
        } else {
            p.squash += 0.12 * std::sin(kPi * (k - 0.7) / 0.3);
        }
        p.glow = s;
        break;
    case FaceManner::Beat::Shiver:
        p.shake = 2.4 * std::sin(2 * kPi * 6 * k) * (1 - k);
        break;
    case FaceManner::Beat::Breath:
    case FaceManner::Beat::None:
        break;
    }
}

} // namespace

double IslandFace::blink(double t)
{
    const double n = std::floor(t / kBlinkPeriod);
    const double h1 = FaceManner::periodHash(n);
    const double s1 = 3.2 + 1.2 * h1;
    const double o1 = blinkShape(t - n * kBlinkPeriod - s1);
    const double h2 = FaceManner::periodHash(n + 7919);
    if (!(h2 < 0.4))
        return o1;
    const double s2 = s1 + 0.3 + 0.12 * h1;
    const double o2 = blinkShape(t - n * kBlinkPeriod - s2);
    return std::min({o1, o2, 1.0});
}

FacePose IslandFace::pose(Mood mood, bool calm, double t, double changedAt)
{
    const FaceManner &m = FaceManner::of(mood);
    FacePose p = m.rest;
    if (m.blinks)
        p.openness = blink(t);
    if (m.glanceStep > 0)
        p.gazeX = glanceAt(m, t);
    const FaceManner::Beat beat = m.beatIn(calm);
    if (beat == FaceManner::Beat::Breath) {
        p.squash += 0.035 * std::sin(2 * kPi * t / m.beatPeriod);
    } else if (beat != FaceManner::Beat::None) {
        const double x = t - std::floor(t / m.beatPeriod) * m.beatPeriod;
        if (x < m.beatLength)
            applyBeat(beat, x / m.beatLength, p);
    }
    const double since = t - changedAt;
    if (since >= 0 && since < kStartLength) {
        const double k = since / kStartLength;
        p.squash -= 0.16 * std::sin(2 * kPi * k) * (1 - k);
    }
    return p;
}

FacePose IslandFace::still(Mood mood)
{
    return FaceManner::of(mood).rest;
}

} // namespace vaxo
