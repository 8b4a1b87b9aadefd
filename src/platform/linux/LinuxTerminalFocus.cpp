#include "platform/linux/LinuxTerminalFocus.h"

#include "platform/TerminalPanes.h"
#include "platform/linux/ProcTerminals.h"
#include "platform/linux/TerminalMultiplexers.h"

namespace vaxo::linux_platform {
namespace {

// tmux in kitty in ... : how many drawing programs are followed outwards from the pane.
constexpr int kMaxNesting = 3;

bool focusNested(const QString &tty, int depth, const LinuxTerminalFocus::WindowActivation &activate)
{
    const auto pts = TerminalPanes::ptsNumber(tty);
    const auto holder = pts ? ProcTerminals::masterHolder(*pts) : std::nullopt;
    if (!holder)
        return false;
    const QString program = ProcTerminals::program(*holder);
    if (program == QLatin1String("tmux")) {
        // tmux draws the pane into the ttys of its clients, which are drawn by terminals in turn.
        const QStringList clients = TerminalMultiplexers::selectTmuxPane(tty, *pts);
        for (const QString &client : clients)
            if (depth < kMaxNesting && focusNested(client, depth + 1, activate))
                return true;
        return false;
    }
    if (program.startsWith(QLatin1String("kitty")))
        TerminalMultiplexers::selectKittyWindow(*pts);
    else if (program.startsWith(QLatin1String("wezterm")))
        TerminalMultiplexers::selectWeztermPane(tty, *pts);
    return activate && activate(ProcTerminals::lineage(*holder));
}

} // namespace

LinuxTerminalFocus::LinuxTerminalFocus(WindowActivation activate) : m_activate(std::move(activate))
{
    m_worker.setMaxThreadCount(1);
    m_worker.setObjectName(QStringLiteral("terminal-focus"));
}

LinuxTerminalFocus::~LinuxTerminalFocus()
{
    m_worker.waitForDone();
}

void LinuxTerminalFocus::focus(const QString &tty)
{
    if (!tty.isEmpty())
        m_worker.start([tty, activate = m_activate] { focusTty(tty, activate); });
}

bool LinuxTerminalFocus::focusTty(const QString &tty, const WindowActivation &activate)
{
    return focusNested(tty, 0, activate);
}

} // namespace vaxo::linux_platform
