#include "platform/linux/LinuxTerminalFocus.h"

#include "agents/AgentSession.h"
#include "agents/TerminalPanes.h"
#include "platform/linux/ProcTerminals.h"
#include "platform/linux/TerminalMultiplexers.h"
#include "platform/linux/X11WindowActivation.h"

namespace vaxo::linux_platform {
namespace {

// tmux in kitty in ... : how many drawing programs are followed outwards from the pane.
constexpr int kMaxNesting = 3;

bool focusNested(const QString &tty, int depth)
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
            if (depth < kMaxNesting && focusNested(client, depth + 1))
                return true;
        return false;
    }
    if (program.startsWith(QLatin1String("kitty")))
        TerminalMultiplexers::selectKittyWindow(*pts);
    else if (program.startsWith(QLatin1String("wezterm")))
        TerminalMultiplexers::selectWeztermPane(tty, *pts);
    return X11WindowActivation::activateWindowOf(ProcTerminals::lineage(*holder));
}

} // namespace

LinuxTerminalFocus::LinuxTerminalFocus()
{
    m_worker.setMaxThreadCount(1);
    m_worker.setObjectName(QStringLiteral("terminal-focus"));
}

LinuxTerminalFocus::~LinuxTerminalFocus()
{
    m_worker.waitForDone();
}

void LinuxTerminalFocus::focus(const AgentSession &session)
{
    const QString tty = session.tty.value_or(QString());
    if (!tty.isEmpty())
        m_worker.start([tty] { focusTty(tty); });
}

bool LinuxTerminalFocus::focusTty(const QString &tty)
{
    return focusNested(tty, 0);
}

} // namespace vaxo::linux_platform
