#include "platform/linux/MprisRecord.h"

#include "media/ArtworkCache.h"
#include "media/PlayerAnswers.h"

#include <QDBusArgument>
#include <QRegularExpression>

#include <algorithm>

namespace vaxo::linux_platform::MprisRecord {
namespace {

const QString kSpotify = QStringLiteral("Spotify");
const QString kMusic = QStringLiteral("Music");
const QString kChrome = QStringLiteral("Chrome");

// The words of a name, in lower case: "google-chrome" and "Google Chrome" both hold "chrome".
QStringList words(const QString &name)
{
    static const QRegularExpression separators(QStringLiteral("[^a-z0-9]+"));
    return name.toLower().split(separators, Qt::SkipEmptyParts);
}

bool isBrowser(const QString &name)
{
    static const QStringList browsers{QStringLiteral("chromium"), QStringLiteral("chrome"),  QStringLiteral("firefox"),
                                      QStringLiteral("brave"),    QStringLiteral("vivaldi"), QStringLiteral("edge"),
                                      QStringLiteral("msedge"),   QStringLiteral("opera")};
    const QStringList found = words(name);
    return std::any_of(found.begin(), found.end(), [](const QString &w) { return browsers.contains(w); });
}

// The metadata map, whether it came as a map or still marshalled; absent when it is something else.
std::optional<QVariantMap> metadata(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<QVariantMap>())
        return value.toMap();
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("a{sv}"))
        return std::nullopt;
    return qdbus_cast<QVariantMap>(argument);
}

// A count of microseconds in seconds; absent unless it is a whole or decimal number.
std::optional<double> seconds(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Double:
        return value.toDouble() / 1e6;
    default:
        return std::nullopt;
    }
}

QString firstArtist(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<QStringList>())
        return value.toStringList().value(0);
    return value.metaType() == QMetaType::fromType<QString>() ? value.toString() : QString();
}

int rank(const NowPlaying &record)
{
    const int source = record.source == kSpotify ? 0 : record.source == kMusic ? 1 : 2;
    return source * 2 + (record.isPlaying ? 0 : 1);
}

} // namespace

QString source(const QString &busName, const QString &identity)
{
    const QString own = busName.mid(qsizetype(sizeof(kNamePrefix)) - 1).section(QLatin1Char('.'), 0, 0);
    if (own == QLatin1String("spotify"))
        return kSpotify;
    return isBrowser(own) || isBrowser(identity) ? kChrome : kMusic;
}

std::optional<NowPlaying> read(const QVariantMap &properties, const QString &source, const QString &player,
                               ArtworkCache &artwork, double now)
{
    const QString status = properties.value(QStringLiteral("PlaybackStatus")).toString();
    const std::optional<QVariantMap> meta = metadata(properties.value(QStringLiteral("Metadata")));
    const QVariant title = meta ? meta->value(QStringLiteral("xesam:title")) : QVariant();
    if ((status != QLatin1String("Playing") && status != QLatin1String("Paused")) || !meta ||
        title.metaType() != QMetaType::fromType<QString>() || title.toString().trimmed().isEmpty())
        return std::nullopt;

    NowPlaying record;
    record.title = title.toString();
    record.artist = firstArtist(meta->value(QStringLiteral("xesam:artist")));
    if (source == kChrome && record.artist.isEmpty()) {
        const std::optional<NowPlaying> tab = PlayerAnswers::parseBrowserTitle(record.title, now);
        if (!tab)
            return std::nullopt;
        record.title = tab->title;
        record.artist = tab->artist;
    }
    record.isPlaying = status == QLatin1String("Playing");
    record.source = source;
    const QVariant art = meta->value(QStringLiteral("mpris:artUrl"));
    if (art.metaType() == QMetaType::fromType<QString>())
        record.artwork = artwork.image(art.toString());
    record.elapsed = seconds(properties.value(QStringLiteral("Position")));
    if (record.elapsed && *record.elapsed < 0)
        record.elapsed.reset();
    record.duration = seconds(meta->value(QStringLiteral("mpris:length")));
    if (record.duration && !(*record.duration > 0))
        record.duration.reset();
    record.capturedAt = now;
    record.player = player;
    return record;
}

std::optional<NowPlaying> choose(const QList<NowPlaying> &records)
{
    const auto best = std::min_element(records.begin(), records.end(),
                                       [](const NowPlaying &a, const NowPlaying &b) { return rank(a) < rank(b); });
    return best == records.end() ? std::nullopt : std::optional<NowPlaying>(*best);
}

} // namespace vaxo::linux_platform::MprisRecord
