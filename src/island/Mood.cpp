#include "island/Mood.h"

namespace vaxo {

QString moodName(Mood mood)
{
    switch (mood) {
    case Mood::Sleeping: return QStringLiteral("sleeping");
    case Mood::Resting: return QStringLiteral("resting");
    case Mood::Working: return QStringLiteral("working");
    case Mood::Busy: return QStringLiteral("busy");
    case Mood::Swamped: return QStringLiteral("swamped");
    case Mood::Waiting: return QStringLiteral("waiting");
    case Mood::Pleased: return QStringLiteral("pleased");
    }
    return {};
}

Mood moodFor(int waiting, int working, bool justFinished, bool userIdle)
{
    if (waiting > 0)
        return Mood::Waiting;
    if (justFinished)
        return Mood::Pleased;
    if (working >= 3)
        return Mood::Swamped;
    if (working == 2)
        return Mood::Busy;
    if (working == 1)
        return Mood::Working;
    return userIdle ? Mood::Sleeping : Mood::Resting;
}

} // namespace vaxo
