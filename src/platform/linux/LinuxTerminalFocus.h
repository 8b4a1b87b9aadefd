#pragma once

#include "platform/TerminalFocus.h"

#include <QString>
#include <QThreadPool>

namespace vaxo::linux_platform {

// Brings forward the terminal window that draws a session's tty, found through the process that holds
// the tty's master side and that process's window, and selects the pane when a multiplexer or a tabbed
// terminal draws it (tmux, kitty, WezTerm). Without a tty there is nothing to find. Requests run one
// after another on a thread of their own; the destructor waits for the one under way.
class LinuxTerminalFocus final : public TerminalFocus {
public:
    LinuxTerminalFocus();
    ~LinuxTerminalFocus() override;

    void focus(const AgentSession &session) override;

    // The work of one request, on the calling thread: true when a window was asked to come forward.
    static bool focusTty(const QString &tty);

private:
    QThreadPool m_worker;
};

} // namespace vaxo::linux_platform
