#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace vaxo::linux_platform {

// What /proc says about the user's processes and their pseudo-terminals. Processes of other users
// and processes that end while they are read are skipped. Any thread.
namespace ProcTerminals {

// The fields of /proc/PID/stat after the command name: state, parent, process group, session,
// terminal device, ..., the start time at index 19; empty when the process cannot be read.
QList<QByteArray> statFields(qint64 pid);

// The process that holds the master side of /dev/pts/<number>: the terminal (or multiplexer) that
// draws it.
std::optional<qint64> masterHolder(int ptsNumber);
// The processes whose controlling terminal is /dev/pts/<number>.
QList<qint64> processesOn(int ptsNumber);
// The process and its ancestors, nearest first, up to but without process 1.
QList<qint64> lineage(qint64 pid);
// The file name of the process's program ("tmux", "kitty", "wezterm-gui"), empty when unknown.
QString program(qint64 pid);
// The process's environment as /proc/PID/environ holds it, empty when it cannot be read.
QByteArray environment(qint64 pid);

} // namespace ProcTerminals
} // namespace vaxo::linux_platform
