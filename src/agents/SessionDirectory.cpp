#include "agents/SessionDirectory.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace vaxo {

std::optional<QList<AgentSession>> SessionDirectory::load(const QString &dir, double now, double maxAge)
{
    const QDir folder(dir);
    if (!folder.exists() || !folder.isReadable())
        return std::nullopt;
    const QStringList names =
        folder.entryList(QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);

    QList<AgentSession> sessions;
    for (const QString &name : names) {
        // Also skips the writers' temporary files and the indexing marker.
        if (!name.endsWith(QLatin1String(".json")))
            continue;
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        std::optional<AgentSession> session = AgentSession::decode(file.readAll());
        if (!session)
            continue;
        if (session->updated && now - *session->updated > maxAge) {
            file.remove(); // a failed removal still leaves the record out
            continue;
        }
        sessions.append(std::move(*session));
    }
    sort(sessions);
    return sessions;
}

void SessionDirectory::sort(QList<AgentSession> &sessions)
{
    std::stable_sort(sessions.begin(), sessions.end(), [](const AgentSession &a, const AgentSession &b) {
        if (a.isWaiting() != b.isWaiting())
            return a.isWaiting();
        return a.updated.value_or(0) > b.updated.value_or(0);
    });
}

} // namespace vaxo
