#include "platform/linux/InotifyFolderWatcher.h"

#include <QFile>
#include <QSocketNotifier>

#include <cerrno>
#include <sys/inotify.h>
#include <unistd.h>

namespace vaxo::linux_platform {

InotifyFolderWatcher::~InotifyFolderWatcher()
{
    cancel();
}

bool InotifyFolderWatcher::watch(const QString &path)
{
    cancel();
    m_fd = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_fd < 0)
        return false;
    const uint32_t events = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ATTRIB | IN_CLOSE_WRITE |
                            IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
    if (inotify_add_watch(m_fd, QFile::encodeName(path).constData(), events) < 0) {
        cancel();
        return false;
    }
    m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &InotifyFolderWatcher::drain);
    return true;
}

void InotifyFolderWatcher::cancel()
{
    delete m_notifier;
    m_notifier = nullptr;
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

void InotifyFolderWatcher::drain()
{
    // One report per read is enough: the listener coalesces, it never looks at single events.
    alignas(inotify_event) char buffer[16 * 1024];
    bool any = false;
    for (;;) {
        const ssize_t n = ::read(m_fd, buffer, sizeof buffer);
        if (n > 0) {
            any = true;
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        break;
    }
    if (any)
        emit changed();
}

} // namespace vaxo::linux_platform
