#pragma once

#include "media/NowPlaying.h"

#include <QString>

#include <optional>

namespace vaxo {

class ArtworkCache;

// Reads what scriptable players and browser tabs answer into records. Each gives no record for an
// answer that says nothing plays or that does not parse; a field that does not parse is left absent.
// Artwork comes only from local files (ArtworkCache).
namespace PlayerAnswers {

// A player script's answer (MediaScripts::music() or spotify()), already trimmed: the fields split at
// the unit separator. source is "Music" or "Spotify"; Spotify's answer carries an artwork URL and its
// duration in milliseconds. Numbers are plain decimals with a "." point.
std::optional<NowPlaying> parsePlayer(const QString &source, const QString &answer, ArtworkCache &artwork, double now);

// The Chrome script's answer: "JS:" and the page's JSON, or "TITLE:" and a tab title; anything else
// gives no record.
std::optional<NowPlaying> parseChrome(const QString &answer, ArtworkCache &artwork, double now);

// A media tab's title, "(3) Song · Artist · Album - YouTube Music", read as title "Song" and artist
// "Artist", playing, from "Chrome". The site's own name alone gives no record.
std::optional<NowPlaying> parseBrowserTitle(const QString &title, double now);

} // namespace PlayerAnswers
} // namespace vaxo
