#pragma once

#include "agents/AgentSession.h"

#include <QList>
#include <QString>

#include <optional>

namespace vaxo {

// Reads the sessions folder into the ordered session list.
class SessionDirectory {
public:
    // Session files whose "updated" lies more than this many seconds in the past are stale.
    static constexpr double kMaxAge = 28800;

    // Reads every "*.json" file in dir, skipping files that cannot be read or decoded (they stay on
    // disk), removes stale files, and returns the sorted list. Nothing when dir cannot be listed.
    static std::optional<QList<AgentSession>> load(const QString &dir, double now, double maxAge = kMaxAge);

    // Waiting sessions first, then the most recently updated; ties keep their order.
    static void sort(QList<AgentSession> &sessions);
};

} // namespace vaxo
