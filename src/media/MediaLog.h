#pragma once

#include <QString>

namespace vaxo {

class Clock;

// The media reader's own log, "island-media.log" in the support folder's "Logs": one line per event,
// "[2026-01-31 12:00:00 +0000] message", the time in UTC. The folder is made when missing; a line
// that cannot be written is dropped.
class MediaLog {
public:
    MediaLog(QString folder, const Clock &clock);

    QString file() const;
    void append(const QString &message) const;

    // One line as written, with its new line.
    static QString line(double when, const QString &message);

private:
    QString m_folder;
    const Clock &m_clock;
};

} // namespace vaxo
