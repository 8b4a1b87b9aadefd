#pragma once

#include "media/NowPlaying.h"

#include <QString>

#include <optional>

namespace vaxo {

// The words and measures the music section shows, computed here so that the views only lay them out.
namespace MusicText {

// A position or length as a clock: "0:07", "3:45", "1:02:03"; negative counts as 0.
QString clock(double seconds);
// The track's length as a clock; empty when unknown.
QString durationText(const std::optional<double> &duration);
// Where the track is at `now`: elapsed, moved on by the time since capture while playing, kept within
// the track's length. Absent when the player did not say.
std::optional<double> position(const NowPlaying &track, double now);
// position / duration within 0..1; 0 when either is unknown.
double progress(const std::optional<double> &position, const std::optional<double> &duration);
// The collapsed island's line: "Title · Artist", the title alone without an artist.
QString stripText(const NowPlaying &track);
// What the open card adds for music: more while a track plays (for the position bar), less while it is
// paused, nothing without a track.
double allowance(const std::optional<NowPlaying> &track);

QString emptyText(); // "Nothing playing"
// Why a media key was not posted.
QString mediaKeysBlocked();
// The settings card's music row: the blocked reason when there is one, else what can be controlled.
QString controlNote(bool needsPermission, bool granted, const std::optional<QString> &blockedReason);

} // namespace MusicText
} // namespace vaxo
