#pragma once

namespace vaxo {

struct AgentSession;

// Brings a session's terminal to the front and selects the tab or pane it runs in, as far as the
// session tells where it runs. Called on the main thread; returns at once: the work runs on a
// background thread, one request after another, and its failures are ignored.
class TerminalFocus {
public:
    virtual ~TerminalFocus() = default;
    virtual void focus(const AgentSession &session) = 0;
};

} // namespace vaxo
