#include "island/CardText.h"

#include <cmath>

namespace vaxo::CardText {

QString durationText(double since, double now)
{
    const double minutes = std::floor((now - since) / 60.0);
    if (!(minutes >= 1))
        return QStringLiteral("now");
    const auto m = qint64(minutes);
    if (m < 60)
        return QStringLiteral("%1m").arg(m);
    return QStringLiteral("%1h %2m").arg(m / 60).arg(m % 60);
}

QString moreRunning(int hidden)
{
    return hidden > 0 ? QStringLiteral("+%1 more running").arg(hidden) : QString();
}

QString moreWaiting(int others)
{
    return others > 0 ? QStringLiteral("+%1 more waiting on you").arg(others) : QString();
}

QString taskSummary(const AgentTasks &tasks)
{
    return QStringLiteral("%1 in progress \u00B7 %2 open").arg(tasks.inProgress).arg(tasks.open);
}

QString tasksCompleted(const AgentTasks &tasks)
{
    return QStringLiteral("%1 completed").arg(tasks.done);
}

ActionLine actionLine(const QString &lastAction)
{
    const qsizetype space = lastAction.indexOf(QLatin1Char(' '));
    if (space < 0)
        return {lastAction, {}};
    return {lastAction.left(space), lastAction.mid(space + 1)};
}

QString waitedText(double seconds)
{
    return seconds >= 60 ? QStringLiteral("waiting ") + durationText(0, seconds) : QString();
}

QString needsPermission()
{
    return QStringLiteral("Needs your permission");
}

QString waitingApproval()
{
    return QStringLiteral("Waiting for your approval");
}

QString emptyState()
{
    return QStringLiteral("All quiet. Start something and I\u2019ll keep an eye on it.");
}

} // namespace vaxo::CardText
