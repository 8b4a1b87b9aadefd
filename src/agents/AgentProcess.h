#pragma once

#include <QString>

namespace vaxo {

// The agent's own process, as the hook found it: its id, and when it started (an opaque token, the
// kernel's start time on Linux) so that a process that later gets the same id is never taken for it.
struct AgentProcess {
    qint64 pid = 0;
    QString start;

    bool operator==(const AgentProcess &) const = default;
};

} // namespace vaxo
