#pragma once

#include "agents/AgentTaskItem.h"

#include <QList>

namespace vaxo {

// An agent's task list with its counts, as the agent reports it.
struct AgentTasks {
    qint64 done = 0;
    qint64 inProgress = 0;
    qint64 open = 0;
    QList<AgentTaskItem> items;

    bool operator==(const AgentTasks &) const = default;
};

} // namespace vaxo
