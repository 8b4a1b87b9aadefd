#pragma once

#include <QString>

namespace vaxo {

// The character's mood, in order from calmest to most urgent but "pleased".
enum class Mood { Sleeping, Resting, Working, Busy, Swamped, Waiting, Pleased };

// "sleeping", "resting", "working", "busy", "swamped", "waiting", "pleased".
QString moodName(Mood mood);

// waiting and working count sessions by exact status; justFinished is a session that has just gone
// from working to done; userIdle is the user's input idleness.
Mood moodFor(int waiting, int working, bool justFinished, bool userIdle);

} // namespace vaxo
