#include "agents/SessionLiveness.h"

#include "platform/FolderWatcher.h"
#include "platform/ProcessWatcher.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace vaxo {

SessionLiveness::SessionLiveness(QString sessions, ProcessWatcher *processes, QString claudeStatus,
                                 FolderWatcher *statusWatcher, QObject *parent)
    : QObject(parent), m_sessions(std::move(sessions)), m_processes(processes), m_claudeStatus(std::move(claudeStatus)),
      m_statusWatcher(statusWatcher)
{
    m_processes->setParent(this);
    m_statusWatcher->setParent(this);
    connect(m_processes, &ProcessWatcher::ended, this, &SessionLiveness::ended);
    connect(m_statusWatcher, &FolderWatcher::changed, this, &SessionLiveness::statusChanged);
}

void SessionLiveness::apply(QList<AgentSession> &sessions)
{
    QHash<Process, QStringList> watched;
    for (qsizetype i = 0; i < sessions.size();) {
        const AgentSession &s = sessions.at(i);
        if (!s.process) {
            ++i;
            continue;
        }
        const Process process{s.process->pid, s.process->start};
        if (m_watched.contains(process) ||
            m_processes->watch(process.first, process.second) != ProcessWatcher::Watch::Ended) {
            watched[process] << s.id;
            if (s.isWorking() && turnEnded(s))
                sessions[i].status = QStringLiteral("done");
            ++i;
            continue;
        }
        removeFile(s.id);
        sessions.removeAt(i);
    }
    for (auto it = m_watched.cbegin(); it != m_watched.cend(); ++it) {
        if (!watched.contains(it.key()))
            m_processes->forget(it.key().first, it.key().second);
    }
    m_watched = std::move(watched);
    // Claude Code makes its folder with its first session; until then there is nothing to watch.
    if (!m_watchingStatus && !m_watched.isEmpty())
        m_watchingStatus = m_statusWatcher->watch(m_claudeStatus);
}

void SessionLiveness::stop()
{
    for (auto it = m_watched.cbegin(); it != m_watched.cend(); ++it)
        m_processes->forget(it.key().first, it.key().second);
    m_watched.clear();
    m_statusWatcher->cancel();
    m_watchingStatus = false;
}

void SessionLiveness::ended(qint64 pid, const QString &start)
{
    // The folder's watch then reloads without these sessions.
    for (const QString &id : m_watched.take({pid, start}))
        removeFile(id);
}

bool SessionLiveness::turnEnded(const AgentSession &s) const
{
    QFile file(m_claudeStatus + QStringLiteral("/%1.json").arg(s.process->pid));
    if (!file.open(QIODevice::ReadOnly) || file.size() > 65536)
        return false;
    const QJsonObject status = QJsonDocument::fromJson(file.readAll()).object();
    const double since = status.value(QLatin1String("statusUpdatedAt")).toDouble() / 1000.0;
    return status.value(QLatin1String("sessionId")).toString() == s.id &&
           status.value(QLatin1String("procStart")).toString() == s.process->start &&
           status.value(QLatin1String("status")).toString() == QLatin1String("idle") && since > s.updated.value_or(0);
}

void SessionLiveness::removeFile(const QString &id) const
{
    if (!id.contains(QLatin1Char('/')) && id != QLatin1String("..") && id != QLatin1String("."))
        QFile::remove(m_sessions + QLatin1Char('/') + id + QStringLiteral(".json"));
}

} // namespace vaxo
