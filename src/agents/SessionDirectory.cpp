#include "agents/SessionDirectory.h"

#include <QFile>

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace vaxo {
namespace {

struct DirCloser {
    void operator()(DIR *dir) const { closedir(dir); }
};

} // namespace

std::optional<QList<AgentSession>> SessionDirectory::load(double now, double maxAge)
{
    const QByteArray folder = QFile::encodeName(m_path);
    std::unique_ptr<DIR, DirCloser> dir(opendir(folder.constData()));
    if (!dir)
        return std::nullopt;

    QList<AgentSession> sessions;
    QHash<QString, Decoded> decoded;
    while (const dirent *entry = readdir(dir.get())) {
        const QByteArray name(entry->d_name);
        // Also skips the writers' temporary files and the indexing marker.
        if (!name.endsWith(".json"))
            continue;
        const QByteArray file = folder + '/' + name;
        struct stat st {};
        if (::stat(file.constData(), &st) != 0 || !S_ISREG(st.st_mode))
            continue;
        const Stamp stamp{quint64(st.st_ino), qint64(st.st_size),
                          qint64(st.st_mtim.tv_sec) * 1'000'000'000 + st.st_mtim.tv_nsec,
                          qint64(st.st_ctim.tv_sec) * 1'000'000'000 + st.st_ctim.tv_nsec};
        const QString key = QFile::decodeName(name);
        Decoded entryState = m_decoded.value(key);
        if (!(entryState.stamp == stamp)) {
            QFile in(QFile::decodeName(file));
            if (!in.open(QIODevice::ReadOnly))
                continue;
            entryState = {stamp, AgentSession::decode(in.readAll())};
        }
        decoded.insert(key, entryState);
        const std::optional<AgentSession> &session = entryState.session;
        if (!session)
            continue;
        if (session->updated && now - *session->updated > maxAge) {
            QFile::remove(QFile::decodeName(file)); // a failed removal still leaves the record out
            continue;
        }
        sessions.append(*session);
    }
    m_decoded = std::move(decoded);
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
