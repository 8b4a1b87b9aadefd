#pragma once

#include "media/Artwork.h"

#include <QString>

#include <optional>

namespace vaxo {

// What one player is playing, as read at capturedAt.
struct NowPlaying {
    QString title; // never empty in a published record
    QString artist;
    bool isPlaying = false;
    QString source; // "System", "Spotify", "Music" or "Chrome"
    ArtworkRef artwork;
    std::optional<double> elapsed;  // seconds into the track at capturedAt
    std::optional<double> duration; // seconds
    double capturedAt = 0;          // seconds since 1970
    // The player that produced the record, so that commands reach it (an MPRIS bus name); empty when
    // the platform cannot tell players apart.
    QString player;

    // The position alone does not make a record new: a poll that only finds the track further on
    // publishes nothing, and views extrapolate from elapsed and capturedAt. Artwork compares by object.
    bool operator==(const NowPlaying &other) const;
};

} // namespace vaxo
