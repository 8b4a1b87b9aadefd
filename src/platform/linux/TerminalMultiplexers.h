#pragma once

#include <QString>
#include <QStringList>

namespace vaxo::linux_platform {

// Selects a pane through the command line of the program that draws it: tmux, kitty and WezTerm. The
// program's socket is taken from the environment of the processes on the pane's tty, where each of
// them leaves it. A program that is missing, refuses or hangs selects nothing. Any thread; blocks for
// as long as the program runs.
namespace TerminalMultiplexers {

// Makes the pane on tty, of /dev/pts/<pts>, the current one of its tmux window, and the window the
// current one of its session. Returns the ttys of the clients that show the pane's session (when none
// does, the first client, switched to it): the terminals to bring forward next.
QStringList selectTmuxPane(const QString &tty, int pts);
// Focuses kitty's window (its pane) on /dev/pts/<pts>, when kitty's remote control listens.
void selectKittyWindow(int pts);
// Activates WezTerm's pane on tty, of /dev/pts/<pts>.
void selectWeztermPane(const QString &tty, int pts);

} // namespace TerminalMultiplexers
} // namespace vaxo::linux_platform
