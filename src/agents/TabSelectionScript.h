#pragma once

#include "agents/AgentSession.h"

#include <QString>

#include <optional>

namespace vaxo {

// The script that selects a session's very tab in the terminals that take scripts (iTerm2 by its
// session id, Terminal by the tab's tty); absent for any other host, or when the session does not say
// which tab it runs in. Activating the host application is all that is left to do then.
std::optional<QString> tabSelectionScript(const AgentSession &session);

} // namespace vaxo
