#include "platform/linux/TerminalMultiplexers.h"

#include "platform/TerminalPanes.h"
#include "platform/linux/ProcTerminals.h"

#include <QProcess>

#include <optional>

namespace vaxo::linux_platform::TerminalMultiplexers {
namespace {

// Long enough for a busy machine; a program that takes longer is not waited for.
constexpr int kCommandTimeoutMs = 3000;

// Standard output of the command, empty when it fails to start, fails or times out.
QByteArray run(const QString &program, const QStringList &arguments, const QStringList &environment = {})
{
    QProcess process;
    if (!environment.isEmpty()) {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const QString &entry : environment)
            env.insert(entry.section(QLatin1Char('='), 0, 0), entry.section(QLatin1Char('='), 1));
        process.setProcessEnvironment(env);
    }
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(kCommandTimeoutMs)) {
        process.kill();
        process.waitForFinished(kCommandTimeoutMs);
        return {};
    }
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 ? process.readAllStandardOutput()
                                                                                   : QByteArray();
}

// A variable of the environment of a process on /dev/pts/<pts>, the first found.
std::optional<QString> variableOn(int pts, const QString &name)
{
    for (qint64 pid : ProcTerminals::processesOn(pts))
        if (auto value = TerminalPanes::environValue(ProcTerminals::environment(pid), name))
            return value;
    return std::nullopt;
}

} // namespace

QStringList selectTmuxPane(const QString &tty, int pts)
{
    const QString tmux = QStringLiteral("tmux");
    QStringList server;
    if (const auto variable = variableOn(pts, QStringLiteral("TMUX")))
        if (const QString socket = TerminalPanes::tmuxSocket(*variable); !socket.isEmpty())
            server = {QStringLiteral("-S"), socket};
    const auto pane = TerminalPanes::tmuxPane(
        run(tmux, server + QStringList{QStringLiteral("list-panes"), QStringLiteral("-a"), QStringLiteral("-F"),
                                       QString::fromLatin1(TerminalPanes::kTmuxPaneFormat)}),
        tty);
    if (!pane)
        return {};
    run(tmux, server + QStringList{QStringLiteral("select-window"), QStringLiteral("-t"), pane->pane});
    run(tmux, server + QStringList{QStringLiteral("select-pane"), QStringLiteral("-t"), pane->pane});
    const QByteArray listed = run(tmux, server + QStringList{QStringLiteral("list-clients"), QStringLiteral("-F"),
                                                             QString::fromLatin1(TerminalPanes::kTmuxClientFormat)});
    QStringList clients = TerminalPanes::tmuxClientTtys(listed, pane->session);
    // When no client shows the pane's session, the first client is switched to it.
    if (clients.isEmpty()) {
        clients = TerminalPanes::tmuxClientTtys(listed, QString()).mid(0, 1);
        for (const QString &client : std::as_const(clients))
            run(tmux, server + QStringList{QStringLiteral("switch-client"), QStringLiteral("-c"), client,
                                           QStringLiteral("-t"), pane->pane});
    }
    return clients;
}

void selectKittyWindow(int pts)
{
    const auto socket = variableOn(pts, QStringLiteral("KITTY_LISTEN_ON"));
    const auto window = variableOn(pts, QStringLiteral("KITTY_WINDOW_ID"));
    if (socket && window)
        run(QStringLiteral("kitty"),
            {QStringLiteral("@"), QStringLiteral("--to"), *socket, QStringLiteral("focus-window"),
             QStringLiteral("--match"), QStringLiteral("id:") + *window});
}

void selectWeztermPane(const QString &tty, int pts)
{
    QStringList environment;
    if (const auto socket = variableOn(pts, QStringLiteral("WEZTERM_UNIX_SOCKET")))
        environment << QStringLiteral("WEZTERM_UNIX_SOCKET=") + *socket;
    const QString wezterm = QStringLiteral("wezterm");
    const auto pane = TerminalPanes::weztermPane(
        run(wezterm,
            {QStringLiteral("cli"), QStringLiteral("list"), QStringLiteral("--format"), QStringLiteral("json")},
            environment),
        tty);
    if (pane)
        run(wezterm, {QStringLiteral("cli"), QStringLiteral("activate-pane"), QStringLiteral("--pane-id"), *pane},
            environment);
}

} // namespace vaxo::linux_platform::TerminalMultiplexers
