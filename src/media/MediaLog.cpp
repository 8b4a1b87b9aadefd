#include "media/MediaLog.h"

#include "base/Clock.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <cmath>

namespace vaxo {

MediaLog::MediaLog(QString folder, const Clock &clock) : m_folder(std::move(folder)), m_clock(clock) {}

QString MediaLog::file() const
{
    return m_folder + QStringLiteral("/island-media.log");
}

QString MediaLog::line(double when, const QString &message)
{
    const QDateTime time = QDateTime::fromSecsSinceEpoch(qint64(std::floor(when)), Qt::UTC);
    return QStringLiteral("[%1 +0000] %2\n").arg(time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")), message);
}

void MediaLog::append(const QString &message) const
{
    QDir().mkpath(m_folder);
    QFile log(file());
    if (log.open(QIODevice::WriteOnly | QIODevice::Append))
        log.write(line(m_clock.now(), message).toUtf8());
}

} // namespace vaxo
