#pragma once

#include "agents/AgentTasks.h"

#include <QJsonArray>
#include <QString>

namespace vaxo {

// The words the card shows about the sessions, computed here so that the views only lay them out.
namespace CardText {

// The time since `since` in whole minutes: "now" under a minute, "7m" under an hour, else "1h 0m".
QString durationText(double since, double now);

// "+3 more running" for the sessions the card does not list; empty when none is hidden.
QString moreRunning(int hidden);
// "+2 more waiting on you" for the waiting sessions beyond the one the caption shows; empty when none.
QString moreWaiting(int others);

// "1 in progress · 2 open".
QString taskSummary(const AgentTasks &tasks);
// "3 completed".
QString tasksCompleted(const AgentTasks &tasks);

// A last action split at its first space: the tool ("Bash") and what it acted on ("npm test").
struct ActionLine {
    QString tool;
    QString rest;
    bool operator==(const ActionLine &) const = default;
};
ActionLine actionLine(const QString &lastAction);

// What ended a turn with an API error, from the error's kind: "Stopped" and "rate limit reached".
ActionLine stopFailure(const QString &kind);

// The third answer to a permission request, worded from what the agent offers to remember, as its
// terminal words it: "Don’t ask again for npm test commands", "Always allow access to proj/",
// "Allow all edits this session"; "Always allow" for anything else.
QString alwaysAllow(const QJsonArray &suggestions);

// How long the longest-waiting session has waited: empty under a minute, else "waiting 4m".
QString waitedText(double seconds);

QString needsPermission(); // "Needs your permission"
QString waitingApproval(); // "Waiting for your approval"
QString emptyState();      // "All quiet. Start something and I’ll keep an eye on it."

} // namespace CardText
} // namespace vaxo
