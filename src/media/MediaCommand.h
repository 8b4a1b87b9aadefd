#pragma once

namespace vaxo {

// What the music section's buttons ask of the player that plays, in this order.
enum class MediaCommand { PlayPause, Next, Previous };

// The keyboard's media-key code for a command: 16, 17 and 18.
constexpr int mediaKeyCode(MediaCommand command)
{
    return 16 + int(command);
}

} // namespace vaxo
