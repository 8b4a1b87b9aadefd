#pragma once

#include "platform/TerminalFocus.h"

#include <QList>
#include <QString>
#include <QThreadPool>

#include <functional>

namespace vaxo::linux_platform {

// Brings forward the terminal window that draws a session's tty, found through the process that holds
// the tty's master side and that process's window, and selects the pane when a multiplexer or a tabbed
// terminal draws it (tmux, kitty, WezTerm). Without a tty there is nothing to find. Requests run one
// after another on a thread of their own; the destructor waits for the one under way.
class LinuxTerminalFocus final : public TerminalFocus {
public:
    // Asks the display server to bring forward the window of the first of these processes (innermost
    // first) that has one; true when one was asked. Runs on the focus thread.
    using WindowActivation = std::function<bool(const QList<qint64> &lineage)>;

    explicit LinuxTerminalFocus(WindowActivation activate);
    ~LinuxTerminalFocus() override;

    void focus(const QString &tty) override;

    // The work of one request, on the calling thread: true when a window was asked to come forward.
    static bool focusTty(const QString &tty, const WindowActivation &activate);

private:
    WindowActivation m_activate;
    QThreadPool m_worker;
};

} // namespace vaxo::linux_platform
