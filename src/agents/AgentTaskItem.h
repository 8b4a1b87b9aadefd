#pragma once

#include <QString>

namespace vaxo {

// One entry of an agent's task list.
struct AgentTaskItem {
    QString subject;
    QString status;

    bool operator==(const AgentTaskItem &) const = default;
};

} // namespace vaxo
