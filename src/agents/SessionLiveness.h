#pragma once

#include "agents/AgentSession.h"

#include <QHash>
#include <QObject>
#include <QPair>
#include <QPointer>
#include <QStringList>

namespace vaxo {

class FolderWatcher;
class ProcessWatcher;

// What a session's file cannot say by itself, since no hook runs for it: that the agent's process
// is gone (its terminal closed), and that its turn ended without a hook (interrupted with Esc).
// The first comes from a watch on each session's process; the second from the status that Claude
// Code keeps of each of its processes in ~/.claude/sessions/<pid>.json ("busy", "idle" or
// "waiting", rewritten as it changes). Main thread only.
class SessionLiveness : public QObject {
    Q_OBJECT
public:
    // Takes ownership of both watchers. sessions: the island's sessions folder; claudeStatus: the
    // folder of Claude Code's process status files.
    SessionLiveness(QString sessions, ProcessWatcher *processes, QString claudeStatus, FolderWatcher *statusWatcher,
                    QObject *parent = nullptr);

    // Watches the processes the sessions name; drops, and deletes the files of, sessions whose
    // process has ended; reports as "done" a working session whose process Claude Code calls idle
    // since after the session's last event.
    void apply(QList<AgentSession> &sessions);
    void stop();

signals:
    // Claude Code's status of a process changed: the sessions should be applied again.
    void statusChanged();

private:
    using Process = QPair<qint64, QString>;
    void ended(qint64 pid, const QString &start);
    bool turnEnded(const AgentSession &session) const;
    void removeFile(const QString &id) const;

    QString m_sessions;
    QPointer<ProcessWatcher> m_processes;
    QString m_claudeStatus;
    QPointer<FolderWatcher> m_statusWatcher;
    bool m_watchingStatus = false;
    QHash<Process, QStringList> m_watched; // the sessions of each watched process
};

} // namespace vaxo
