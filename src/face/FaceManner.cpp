#include "face/FaceManner.h"

namespace vaxo {
namespace {

using Eyes = FacePose::Eyes;
using Mouth = FacePose::Mouth;
using Beat = FaceManner::Beat;

FaceManner sleeping()
{
    FaceManner m;
    m.rest.eyes = Eyes::Closed;
    m.rest.mouth = Mouth::Round;
    m.rest.tilt = -5;
    m.blinks = false;
    m.beat = Beat::Breath;
    m.beatPeriod = 4.2;
    return m;
}

FaceManner resting()
{
    FaceManner m; // a smile, and now and then a look to either side
    m.glanceStep = 2.6;
    m.glances = {0, 0, -0.5, 0, 0, 0.5, 0};
    m.glanceCount = 7;
    return m;
}

FaceManner working()
{
    FaceManner m; // reads along a line, word by word, and starts the next one
    m.rest.lid = 0.3;
    m.rest.gazeY = 0.35;
    m.rest.mouth = Mouth::Flat;
    m.glanceStep = 1.0;
    m.glances = {-0.55, -0.15, 0.25, 0.6};
    m.glanceCount = 4;
    m.beat = Beat::Pump;
    m.beatPeriod = 2.2;
    m.beatLength = 0.42;
    return m;
}

FaceManner busy()
{
    FaceManner m; // two agents: her eyes go from one to the other
    m.rest.lid = 0.2;
    m.rest.gazeY = 0.15;
    m.rest.mouth = Mouth::Round;
    m.glanceStep = 1.2;
    m.glances = {-0.75, 0.75};
    m.glanceCount = 2;
    m.beat = Beat::Pump;
    m.beatPeriod = 1.5;
    m.beatLength = 0.36;
    return m;
}

FaceManner swamped()
{
    FaceManner m; // too much at once: wide eyes darting about, a wobbly mouth, a drop of sweat
    m.rest.eyeScale = 1.12;
    m.rest.mouth = Mouth::Wavy;
    m.rest.brows = -1;
    m.rest.sweat = true;
    m.glanceStep = 0.6;
    m.glances = {-0.7, 0.6, -0.2, 0.8, -0.5};
    m.glanceCount = 5;
    m.beat = Beat::Shiver;
    m.beatPeriod = 1.8;
    m.beatLength = 0.45;
    return m;
}

FaceManner waiting()
{
    FaceManner m; // looks up at you, eyebrows raised, and hops to be noticed
    m.rest.eyeScale = 1.1;
    m.rest.gazeY = -0.55;
    m.rest.mouth = Mouth::Round;
    m.rest.brows = 1;
    m.beat = Beat::Hop;
    m.beatPeriod = 2.2;
    m.beatLength = 0.55;
    return m;
}

FaceManner pleased()
{
    FaceManner m; // beaming, rosy, bouncing
    m.rest.eyes = Eyes::Happy;
    m.rest.mouth = Mouth::Grin;
    m.rest.blush = true;
    m.blinks = false;
    m.beat = Beat::Hop;
    m.beatPeriod = 1.4;
    m.beatLength = 0.5;
    return m;
}

} // namespace

const FaceManner &FaceManner::of(Mood mood)
{
    static const FaceManner table[] = {sleeping(), resting(), working(), busy(), swamped(), waiting(), pleased()};
    return table[int(mood)];
}

} // namespace vaxo
