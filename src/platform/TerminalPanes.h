#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace vaxo {

// Reading what terminal multiplexers and tabbed terminals say about their panes, to find the pane
// that runs on a given tty. Pure functions over the programs' outputs; an output that does not parse
// finds nothing.
namespace TerminalPanes {

// A tty's number among the pseudo-terminals: 4 for "/dev/pts/4"; absent for anything else.
std::optional<int> ptsNumber(const QString &tty);

// The format asked of "tmux list-panes -a -F" and "tmux list-clients -F".
inline constexpr char kTmuxPaneFormat[] = "#{pane_tty}\t#{pane_id}\t#{session_id}";
inline constexpr char kTmuxClientFormat[] = "#{client_tty}\t#{session_id}";

struct TmuxPane {
    QString pane;    // "%3"
    QString session; // "$1"
    bool operator==(const TmuxPane &) const = default;
};
// The pane running on tty, in the output of list-panes in kTmuxPaneFormat.
std::optional<TmuxPane> tmuxPane(const QByteArray &listPanes, const QString &tty);
// The ttys of the clients that show session (every client for an empty session), in the output of
// list-clients in kTmuxClientFormat, in tmux's order.
QStringList tmuxClientTtys(const QByteArray &listClients, const QString &session);

// The pane id on tty in the JSON of "wezterm cli list --format json".
std::optional<QString> weztermPane(const QByteArray &json, const QString &tty);

// One variable from a process's environment as /proc/PID/environ holds it (NUL-separated).
std::optional<QString> environValue(const QByteArray &environ, const QString &name);
// The server socket named by tmux's "TMUX" variable ("/tmp/tmux-1000/default,1234,0").
QString tmuxSocket(const QString &tmuxVariable);

} // namespace TerminalPanes
} // namespace vaxo
