#pragma once

#include "face/FacePose.h"
#include "island/Mood.h"

namespace vaxo {

// The built-in drawn character: how she looks at any moment of the animation timeline, and when that
// look next changes. Pure functions of the time they are given, so that every redraw of a moment draws
// the same face and nothing is kept between frames. Times are in seconds.
class IslandFace {
public:
    // How open her eyes are at t: 1 open, 0 shut. Once in each 5.5 s she blinks, 3.2 to 4.4 s into the
    // period; four periods in ten hold a second blink just after the first.
    static double blink(double t);

    // Her look in mood at t. calm leaves out the beats, hops and shivers of the "pulse" style.
    // changedAt is when the mood last changed: she gives a little start then.
    static FacePose pose(Mood mood, bool calm, double t, double changedAt);
    // Her look in mood while nothing moves: eyes open, at rest.
    static FacePose still(Mood mood);

    // When, after t, the next frame differs from the one at t: soon while something moves, else the
    // start of the next movement. A frame is always due at the end of a movement, so that she comes to
    // rest exactly in her resting pose.
    static double nextFrame(Mood mood, bool calm, double t, double changedAt);

    // How long her start after a change of mood lasts.
    static constexpr double kStartLength = 0.32;
};

} // namespace vaxo
