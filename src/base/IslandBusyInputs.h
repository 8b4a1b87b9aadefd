#pragma once

namespace vaxo {

// What the island shows right now, as far as it decides whether anything on it needs motion. The
// island state fills it in for the animation gate.
struct IslandBusyInputs {
    bool expanded = false;
    bool pointerInside = false;
    bool pinnedByAlert = false;
    bool showSettings = false;
    bool justFinished = false; // a just-finished agent is being announced
    int activeAgents = 0;      // sessions whose status is "working" or "waiting"
};

} // namespace vaxo
