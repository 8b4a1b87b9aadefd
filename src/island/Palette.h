#pragma once

#include "island/Mood.h"

#include <QString>
#include <QStringList>

namespace vaxo {

// The island's colours, as "#rrggbb" texts the views take as they are.
namespace Palette {

// The accent colours the settings offer, by stored name ("blue", ...), and their labels ("Blue").
const QStringList &accentNames();
const QStringList &accentLabels();
// An accent's colour; a name the settings do not offer gives blue's.
QString accent(const QString &name);

// The colour that stands for a mood where the character is not drawn in full: the accent while she
// rests or works, warmer as the work piles up, orange while she waits, green when pleased.
QString mood(Mood mood, const QString &accentName);

inline constexpr char kWaiting[] = "#ff9f0a"; // what waits for the user
inline constexpr char kDone[] = "#30d158";    // what has finished

} // namespace Palette
} // namespace vaxo
