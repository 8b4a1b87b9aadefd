#pragma once

#include "agents/AgentSession.h"

#include <QHash>
#include <QList>
#include <QString>

#include <optional>

namespace vaxo {

// Reads the sessions folder into the ordered session list. It remembers each file it decoded, by
// inode, size and change times, so that a reload after one hook event decodes only the file that
// changed.
class SessionDirectory {
public:
    // Session files whose "updated" lies more than this many seconds in the past are stale.
    static constexpr double kMaxAge = 28800;

    explicit SessionDirectory(QString path) : m_path(std::move(path)) {}

    // Reads every "*.json" file, skipping files that cannot be read or decoded (they stay on disk),
    // removes stale files, and returns the sorted list. Nothing when the folder cannot be listed.
    std::optional<QList<AgentSession>> load(double now, double maxAge = kMaxAge);

    const QString &path() const { return m_path; }

    // Waiting sessions first, then the most recently updated; ties keep their order.
    static void sort(QList<AgentSession> &sessions);

private:
    struct Stamp {
        quint64 inode = 0;
        qint64 size = 0;
        qint64 modifiedNs = 0;
        qint64 changedNs = 0;
        bool operator==(const Stamp &) const = default;
    };
    struct Decoded {
        Stamp stamp;
        std::optional<AgentSession> session; // empty: the file did not decode
    };

    QString m_path;
    QHash<QString, Decoded> m_decoded;
};

} // namespace vaxo
