#pragma once

#include "media/MediaCommand.h"

#include <QString>

namespace vaxo {

// The AppleScript texts that ask scriptable players what they play and tell them what to do, for the
// platforms that run AppleScript. Their answers are read by PlayerAnswers.
namespace MediaScripts {

// The unit separator between the fields of a player script's answer.
inline constexpr char16_t kFieldSeparator = u'\x1f';

// Title, artist, state, position and duration of Music's current track; "" when stopped.
QString music();
// The same for Spotify, with the artwork URL after the state and the duration in milliseconds.
QString spotify();
// The first media tab of Google Chrome: "JS:" and the page's answer, else "TITLE:" and the tab's title;
// "" when no tab plays media.
QString chrome();
// What chrome() runs in the tab: the media session's metadata and the media element's state as JSON.
QString chromeJavaScript();

// "playpause", "next track", "previous track".
QString verb(MediaCommand command);
// One command to a scriptable player: tell application "Spotify" to next track.
QString command(const QString &application, MediaCommand command);

} // namespace MediaScripts
} // namespace vaxo
