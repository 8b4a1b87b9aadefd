#pragma once

#include "agents/SessionDirectory.h"
#include "agents/SessionSource.h"

#include <QObject>
#include <QPointer>

namespace vaxo {

class Clock;
class FolderWatcher;
class SessionLiveness;
class Timer;

// Watches the sessions folder that the Claude Code hook writes and delivers the session list after
// each burst of changes, only when the list has changed.
class LocalHookSource : public QObject, public SessionSource {
    Q_OBJECT
public:
    // A burst of folder events causes one reload, this long after the last event.
    static constexpr double kCoalesceDelay = 0.05;

    // Takes ownership of watcher and liveness; without liveness, the files alone tell.
    LocalHookSource(QString directory, Clock &clock, FolderWatcher *watcher, SessionLiveness *liveness = nullptr,
                    QObject *parent = nullptr);

    void start(Callback onChange) override;
    void stop() override;

    void reload();
    void scheduleReload();
    // Creates the folder owner-only (or tightens it) with the marker that keeps desktop search out.
    void prepareDirectory();

    const QList<AgentSession> &sessions() const { return m_sessions; }
    const QString &directory() const { return m_directory.path(); }
    double maxAge = SessionDirectory::kMaxAge;

signals:
    // Each completed reload, whether or not the list changed.
    void reloaded();

private:
    SessionDirectory m_directory;
    Clock &m_clock;
    QPointer<FolderWatcher> m_watcher;
    QPointer<SessionLiveness> m_liveness;
    Timer *m_coalesce;
    QList<AgentSession> m_sessions;
    Callback m_onChange;
    bool m_stopped = false;
};

} // namespace vaxo
