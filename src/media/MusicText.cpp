#include "media/MusicText.h"

#include "island/IslandGeometry.h"

#include <algorithm>
#include <cmath>

namespace vaxo::MusicText {

QString clock(double seconds)
{
    const qint64 whole = std::isfinite(seconds) ? qint64(std::floor(std::max(0.0, seconds))) : 0;
    const qint64 hours = whole / 3600, minutes = whole / 60 % 60, secs = whole % 60;
    const QString ss = QStringLiteral("%1").arg(secs, 2, 10, QLatin1Char('0'));
    if (hours > 0)
        return QStringLiteral("%1:%2:%3").arg(hours).arg(minutes, 2, 10, QLatin1Char('0')).arg(ss);
    return QStringLiteral("%1:%2").arg(minutes).arg(ss);
}

QString durationText(const std::optional<double> &duration)
{
    return duration && *duration > 0 ? clock(*duration) : QString();
}

std::optional<double> position(const NowPlaying &track, double now)
{
    if (!track.elapsed)
        return std::nullopt;
    double at = *track.elapsed + (track.isPlaying ? std::max(0.0, now - track.capturedAt) : 0.0);
    if (track.duration && *track.duration > 0)
        at = std::min(at, *track.duration);
    return std::max(0.0, at);
}

double progress(const std::optional<double> &position, const std::optional<double> &duration)
{
    if (!position || !duration || !(*duration > 0))
        return 0;
    return std::clamp(*position / *duration, 0.0, 1.0);
}

QString stripText(const NowPlaying &track)
{
    return track.artist.isEmpty() ? track.title : track.title + QStringLiteral(" \u00b7 ") + track.artist;
}

double allowance(const std::optional<NowPlaying> &track)
{
    if (!track)
        return 0;
    return track->isPlaying ? IslandGeometry::kMediaPlaying : IslandGeometry::kMediaPaused;
}

QString emptyText()
{
    return QStringLiteral("Nothing playing");
}

QString mediaKeysBlocked()
{
    return QStringLiteral("macOS needs Accessibility permission before VAXO Island can use the media keys. "
                          "Spotify and Music work without it.");
}

QString controlNote(bool needsPermission, bool granted, const std::optional<QString> &blockedReason)
{
    if (blockedReason)
        return *blockedReason;
    if (!needsPermission)
        return QStringLiteral("Every player can be controlled");
    if (granted)
        return QStringLiteral("Accessibility granted \u2014 every player can be controlled");
    return QStringLiteral(
        "without it Chrome and YouTube Music cannot be controlled \u2014 Spotify and Music still can");
}

} // namespace vaxo::MusicText
