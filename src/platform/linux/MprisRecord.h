#pragma once

#include "media/NowPlaying.h"

#include <QList>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace vaxo {
class ArtworkCache;
}

namespace vaxo::linux_platform {

// How an MPRIS player's properties become the island's record, and which record wins.
namespace MprisRecord {

inline constexpr char kNamePrefix[] = "org.mpris.MediaPlayer2.";

// The source a player counts as: "Spotify" for org.mpris.MediaPlayer2.spotify, "Chrome" for a browser
// (Chromium, Chrome, Firefox, Brave, Vivaldi, Edge, Opera), known by its bus name or its Identity, and
// "Music" for every other player.
QString source(const QString &busName, const QString &identity);

// The record of one player's transport properties (a GetAll of org.mpris.MediaPlayer2.Player). None
// when it is stopped, has no title, or answers with the wrong types. A browser's title without an
// artist is read as a tab title. Artwork only from file URLs.
std::optional<NowPlaying> read(const QVariantMap &properties, const QString &source, const QString &player,
                               ArtworkCache &artwork, double now);

// The record to show: Spotify before the other players, they before the browsers, and within one
// source a playing player before a paused one; ties go to the earlier record.
std::optional<NowPlaying> choose(const QList<NowPlaying> &records);

} // namespace MprisRecord
} // namespace vaxo::linux_platform
