#pragma once

#include <QList>

namespace vaxo::linux_platform {

// Asks the window manager to bring forward the window of a process, through a connection of its own to
// the X server, so that it can run on any thread.
namespace X11WindowActivation {

// Activates the top-most managed window whose _NET_WM_PID is the first of pids that has one (a
// process, then its ancestors). False when no such window exists or there is no X server or window
// manager to ask.
bool activateWindowOf(const QList<qint64> &pids);

} // namespace X11WindowActivation
} // namespace vaxo::linux_platform
