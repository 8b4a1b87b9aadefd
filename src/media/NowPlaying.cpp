#include "media/NowPlaying.h"

namespace vaxo {

bool NowPlaying::operator==(const NowPlaying &other) const
{
    return title == other.title && artist == other.artist && isPlaying == other.isPlaying && source == other.source &&
           artwork == other.artwork && duration == other.duration && player == other.player;
}

} // namespace vaxo
