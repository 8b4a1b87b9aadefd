#pragma once

#include "platform/FolderWatcher.h"

class QSocketNotifier;

namespace vaxo::linux_platform {

// FolderWatcher on inotify: entries created, deleted, moved in or out, closed after writing, and
// attribute changes. Events are read on the owning thread's event loop.
class InotifyFolderWatcher final : public FolderWatcher {
    Q_OBJECT
public:
    using FolderWatcher::FolderWatcher;
    ~InotifyFolderWatcher() override;

    bool watch(const QString &path) override;
    void cancel() override;

private:
    void drain();

    int m_fd = -1;
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace vaxo::linux_platform
