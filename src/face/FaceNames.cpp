// FaceAssets: the names of moods and artwork files, and which mood borrows from which.
#include "face/FaceAssets.h"

#include <QFileInfo>
#include <QHash>

#include <limits>

namespace vaxo {

const QStringList &FaceAssets::moods()
{
    static const QStringList names{"sleeping", "resting", "working", "busy", "swamped", "waiting", "pleased"};
    return names;
}

QStringList FaceAssets::fallbackChain(const QString &mood)
{
    static const QHash<QString, QString> fallback{{"swamped", "busy"},    {"busy", "working"},
                                                  {"working", "resting"}, {"sleeping", "resting"},
                                                  {"waiting", "resting"}, {"pleased", "resting"}};
    QStringList chain{mood};
    for (auto next = fallback.constFind(mood); next != fallback.constEnd() && !chain.contains(*next);
         next = fallback.constFind(*next))
        chain << *next;
    return chain;
}

std::optional<std::pair<QString, qint64>> FaceAssets::parse(const QString &name)
{
    const QString lowered = name.toLower().trimmed();
    qsizetype end = lowered.size();
    while (end > 0 && lowered.at(end - 1).isDigit() && lowered.at(end - 1).unicode() < 128)
        --end;
    const QString digits = lowered.mid(end);
    while (end > 0 && QStringLiteral("-_ ").contains(lowered.at(end - 1)))
        --end;
    const QString mood = lowered.left(end);
    if (!moods().contains(mood))
        return std::nullopt;
    bool ok = true;
    const qint64 index = digits.isEmpty() ? 0 : digits.toLongLong(&ok);
    // A number too long to read still sorts after every other frame.
    return std::pair{mood, ok ? index : std::numeric_limits<qint64>::max()};
}

const QStringList &FaceAssets::stillTypes()
{
    static const QStringList types{"svg", "pdf", "png", "tiff", "heic", "jpg", "jpeg"};
    return types;
}

const QStringList &FaceAssets::videoTypes()
{
    static const QStringList types{"mp4", "mov", "m4v"};
    return types;
}

QString FaceAssets::frameKey(const QString &path, int maxFrames, int maxEdge)
{
    const QFileInfo info(path);
    const qint64 modified = info.lastModified().toSecsSinceEpoch();
    return QStringLiteral("%1-%2-%3-f%4-e%5")
        .arg(info.fileName())
        .arg(info.size())
        .arg(modified)
        .arg(maxFrames)
        .arg(maxEdge)
        .replace(QLatin1Char('/'), QLatin1Char('_'));
}

} // namespace vaxo
