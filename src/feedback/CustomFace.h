#pragma once

#include <QString>

#include <optional>

namespace vaxo {

// What the user's Face folder holds, as far as a problem report needs it.
namespace CustomFace {

// The mood a file of artwork is for: its base name lower-cased and trimmed, without the frame number
// at its end and the "-", "_" or blanks before it ("Working-2.png" is "working"); absent for a name
// that is no mood or a type that is no still or video.
std::optional<QString> moodOf(const QString &fileName);
// How many moods have artwork in the folder; 0 when it is missing.
int moodCount(const QString &folder);

} // namespace CustomFace
} // namespace vaxo
