#include "feedback/CustomFace.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStringList>

namespace vaxo::CustomFace {

std::optional<QString> moodOf(const QString &fileName)
{
    static const QStringList moods{"sleeping", "resting", "working", "busy", "swamped", "waiting", "pleased"};
    static const QStringList types{"svg", "pdf", "png", "tiff", "heic", "jpg", "jpeg", "mp4", "mov", "m4v"};
    const QFileInfo file(fileName);
    if (fileName.startsWith(QLatin1Char('.')) || !types.contains(file.suffix().toLower()))
        return std::nullopt;
    QString name = file.completeBaseName().toLower().trimmed();
    while (!name.isEmpty() && name.back().isDigit())
        name.chop(1);
    while (!name.isEmpty() && QStringLiteral("-_ ").contains(name.back()))
        name.chop(1);
    return moods.contains(name) ? std::optional(name) : std::nullopt;
}

int moodCount(const QString &folder)
{
    QSet<QString> moods;
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        if (const auto mood = moodOf(name))
            moods.insert(*mood);
    return int(moods.size());
}

} // namespace vaxo::CustomFace
