#include "platform/linux/PidfdProcessWatcher.h"

#include "platform/linux/ProcTerminals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <sys/syscall.h>
#include <unistd.h>

namespace vaxo::linux_platform {

PidfdProcessWatcher::~PidfdProcessWatcher()
{
    for (auto it = m_watched.begin(); it != m_watched.end(); ++it) {
        ::close(int(it.value()->socket()));
        delete it.value();
    }
}

QString PidfdProcessWatcher::startOf(qint64 pid)
{
    return QString::fromLatin1(ProcTerminals::statFields(pid).value(19));
}

ProcessWatcher::Watch PidfdProcessWatcher::watch(qint64 pid, const QString &start)
{
    const Key key{pid, start};
    if (m_watched.contains(key))
        return Watch::Watching;
    if (pid <= 0 || pid > 0x3fffffff)
        return Watch::Ended;
    const int fd = int(::syscall(SYS_pidfd_open, pid_t(pid), 0));
    if (fd < 0)
        return errno == ESRCH ? Watch::Ended : Watch::Unknown;
    // Read after the descriptor is held: from here on the id cannot pass to another process.
    if (startOf(pid) != start) {
        ::close(fd);
        return Watch::Ended;
    }
    auto *notifier = new QSocketNotifier(fd, QSocketNotifier::Read, this);
    m_watched.insert(key, notifier);
    connect(notifier, &QSocketNotifier::activated, this, [this, key] {
        forget(key.first, key.second);
        emit ended(key.first, key.second);
    });
    return Watch::Watching;
}

void PidfdProcessWatcher::forget(qint64 pid, const QString &start)
{
    QSocketNotifier *notifier = m_watched.take({pid, start});
    if (!notifier)
        return;
    notifier->setEnabled(false);
    ::close(int(notifier->socket()));
    notifier->deleteLater();
}

} // namespace vaxo::linux_platform
