#pragma once

#include "agents/AgentSession.h"

#include <QList>

#include <functional>

namespace vaxo {

// Where the island state gets its session lists from.
class SessionSource {
public:
    using Callback = std::function<void(const QList<AgentSession> &)>;

    virtual ~SessionSource() = default;
    // Delivers each new list, on the main thread, only when it differs from the last one.
    virtual void start(Callback onChange) = 0;
    // After stop nothing more is delivered.
    virtual void stop() = 0;
};

} // namespace vaxo
