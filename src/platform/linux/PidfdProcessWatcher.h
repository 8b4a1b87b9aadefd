#pragma once

#include "platform/ProcessWatcher.h"

#include <QHash>
#include <QPair>

class QSocketNotifier;

namespace vaxo::linux_platform {

// ProcessWatcher on process descriptors (pidfd_open, Linux 5.3): each watched process holds one
// descriptor that becomes readable when the process ends, and the start token is the kernel's start
// time of the process (field 22 of /proc/PID/stat), checked after the descriptor is held.
class PidfdProcessWatcher final : public ProcessWatcher {
    Q_OBJECT
public:
    using ProcessWatcher::ProcessWatcher;
    ~PidfdProcessWatcher() override;

    Watch watch(qint64 pid, const QString &start) override;
    void forget(qint64 pid, const QString &start) override;

    // The start token of a running process, empty when there is none.
    static QString startOf(qint64 pid);

private:
    using Key = QPair<qint64, QString>;
    QHash<Key, QSocketNotifier *> m_watched;
};

} // namespace vaxo::linux_platform
