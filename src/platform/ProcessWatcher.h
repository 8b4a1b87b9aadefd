#pragma once

#include <QObject>
#include <QString>

namespace vaxo {

// Tells when processes end, at no cost while none does. A process is named by its id and the token
// of its start that the agent's hook recorded, so that a later process with the same id is never
// taken for it. Reports come on the thread that owns the watcher.
class ProcessWatcher : public QObject {
    Q_OBJECT
public:
    enum class Watch {
        Watching, // ended() follows when the process ends
        Ended,    // no such process: it ended, or its id now belongs to another process
        Unknown,  // the platform cannot tell; nothing is reported
    };

    using QObject::QObject;

    virtual Watch watch(qint64 pid, const QString &start) = 0;
    // Stops watching; no report follows. Safe for a process that is not watched.
    virtual void forget(qint64 pid, const QString &start) = 0;

signals:
    // Once per watched process.
    void ended(qint64 pid, const QString &start);
};

} // namespace vaxo
