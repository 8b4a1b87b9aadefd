#pragma once

#include <QObject>
#include <QString>

namespace vaxo {

// The enumeration has a namespace of its own so that the views can name its values.
namespace moods {
Q_NAMESPACE

// The character's mood, in order from calmest to most urgent but "pleased".
enum class Mood { Sleeping, Resting, Working, Busy, Swamped, Waiting, Pleased };
Q_ENUM_NS(Mood)

} // namespace moods

using moods::Mood;

// "sleeping", "resting", "working", "busy", "swamped", "waiting", "pleased".
QString moodName(Mood mood);

// waiting and working count sessions by exact status; justFinished is a session that has just gone
// from working to done; userIdle is the user's input idleness.
Mood moodFor(int waiting, int working, bool justFinished, bool userIdle);

} // namespace vaxo
