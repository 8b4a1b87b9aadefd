#include "face/IslandFace.h"

#include "face/FaceManner.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace vaxo {
namespace {

constexpr double kBlinkPeriod = 5.5;
constexpr double kBlinkLength = 0.26;
constexpr double kClosing = 0.085;
constexpr double kOpening = 0.175;
constexpr double kQuick = 1.0 / 30; // frame step of blinks, glances and her start
constexpr double kBeat = 1.0 / 24;  // frame step of beats and hops
constexpr double kBreath = 0.1;     // frame step of the slow breath of sleep
constexpr double kGlance = 0.1;     // how long her eyes take to move to the next place
constexpr double kSettle = 1e-6;    // the last frame of a movement falls just after it, surely at rest
constexpr double kPi = std::numbers::pi;

double frac(double x)
{
    return x - std::floor(x);
}

double periodHash(double n)
{
    return frac(std::sin(n * 12.9898) * 43758.5453);
}

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
            p.lift = 9 * std::sin(kPi * k / 0.7);
            p.squash -= 0.05 * std::sin(kPi * k / 0.7);
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
    const double h1 = periodHash(n);
    const double s1 = 3.2 + 1.2 * h1;
    const double o1 = blinkShape(t - n * kBlinkPeriod - s1);
    const double h2 = periodHash(n + 7919);
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
        const double n = std::floor(t / kBlinkPeriod);
        for (double period : {n, n + 1}) {
            const double start = period * kBlinkPeriod + 3.2 + 1.2 * periodHash(period);
            movement(start, kBlinkLength, kQuick);
            if (periodHash(period + 7919) < 0.4)
                movement(start + 0.3 + 0.12 * periodHash(period), kBlinkLength, kQuick);
        }
    }
    if (m.glanceStep > 0) {
        // The next glance that goes somewhere; staying in place is no movement.
        const double k = std::floor(t / m.glanceStep);
        for (int i = 0; i <= m.glanceCount; ++i) {
            if (m.glance(k + i) != m.glance(k + i - 1)) {
                movement((k + i) * m.glanceStep, kGlance, kQuick);
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
