#include "media/PlayerAnswers.h"

#include "media/ArtworkCache.h"
#include "media/MediaScripts.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>

namespace vaxo::PlayerAnswers {
namespace {

const QString kChrome = QStringLiteral("Chrome");

// A plain decimal with "." as the point: a decimal comma or any other text gives nothing.
std::optional<double> decimal(const QStringList &parts, qsizetype index)
{
    if (index >= parts.size())
        return std::nullopt;
    bool ok = false;
    const double value = parts.at(index).toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

std::optional<double> jsonNumber(const QJsonObject &object, const QString &key)
{
    const QJsonValue value = object.value(key);
    return value.isDouble() && std::isfinite(value.toDouble()) ? std::optional<double>(value.toDouble()) : std::nullopt;
}

} // namespace

std::optional<NowPlaying> parsePlayer(const QString &source, const QString &answer, ArtworkCache &artwork, double now)
{
    const QStringList parts = answer.split(QChar(MediaScripts::kFieldSeparator));
    if (parts.size() < 3 || parts.at(0).isEmpty())
        return std::nullopt;
    NowPlaying record;
    record.title = parts.at(0);
    record.artist = parts.at(1);
    record.isPlaying = parts.at(2) == QLatin1String("playing");
    record.source = source;
    record.capturedAt = now;
    const bool spotify = source == QLatin1String("Spotify");
    if (spotify && parts.size() > 3)
        record.artwork = artwork.image(parts.at(3));
    record.elapsed = decimal(parts, spotify ? 4 : 3);
    record.duration = decimal(parts, spotify ? 5 : 4);
    if (spotify && record.duration)
        *record.duration /= 1000.0;
    return record;
}

std::optional<NowPlaying> parseChrome(const QString &answer, ArtworkCache &artwork, double now)
{
    if (answer.startsWith(QLatin1String("TITLE:")))
        return parseBrowserTitle(answer.mid(6), now);
    if (!answer.startsWith(QLatin1String("JS:")))
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(answer.mid(3).toUtf8());
    const QJsonObject json = document.object();
    const QString title = json.value(QLatin1String("t")).toString();
    if (!document.isObject() || title.isEmpty())
        return std::nullopt;
    NowPlaying record;
    record.title = title;
    record.artist = json.value(QLatin1String("a")).toString();
    const QJsonValue paused = json.value(QLatin1String("p"));
    record.isPlaying = !paused.isBool() || !paused.toBool();
    record.source = kChrome;
    if (const QString art = json.value(QLatin1String("art")).toString(); !art.isEmpty())
        record.artwork = artwork.image(art);
    record.elapsed = jsonNumber(json, QStringLiteral("e"));
    record.duration = jsonNumber(json, QStringLiteral("d"));
    record.capturedAt = now;
    return record;
}

std::optional<NowPlaying> parseBrowserTitle(const QString &title, double now)
{
    QString text = title.trimmed();
    if (text.isEmpty())
        return std::nullopt;
    for (const char *suffix : {" - YouTube Music", " - YouTube", " | SoundCloud"}) {
        if (text.endsWith(QLatin1String(suffix)))
            text.chop(qsizetype(qstrlen(suffix)));
    }
    static const QRegularExpression counter(QStringLiteral("^\\(\\d+\\)\\s*"));
    text = text.trimmed().remove(counter);
    static const QStringList siteNames{QStringLiteral("YouTube Music"), QStringLiteral("YouTube"),
                                       QStringLiteral("SoundCloud")};
    if (text.isEmpty() || siteNames.contains(text))
        return std::nullopt;

    NowPlaying record;
    const QString dot = QStringLiteral(" \u00b7 ");
    const qsizetype split = text.indexOf(dot);
    record.title = split < 0 ? text : text.left(split);
    if (split >= 0) {
        const QString rest = text.mid(split + dot.size());
        record.artist = rest.left(rest.indexOf(dot) < 0 ? rest.size() : rest.indexOf(dot));
    }
    record.isPlaying = true;
    record.source = kChrome;
    record.capturedAt = now;
    return record;
}

} // namespace vaxo::PlayerAnswers
