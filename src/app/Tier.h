#pragma once

#include <QString>

#include <optional>

namespace vaxo {

// How present the user is, from most to least: the scheduler runs each job at the interval it gives
// for the current tier.
enum class Tier { Active, Idle, Away };

// "active", "idle" or "away".
QString tierName(Tier tier);
// The tier named exactly by text; any other text names none.
std::optional<Tier> parseTier(const QString &text);

} // namespace vaxo
