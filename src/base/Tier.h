#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace vaxo {

// The enumeration has a namespace of its own so that the views can name its values.
namespace tiers {
Q_NAMESPACE

// How present the user is, from most to least: the scheduler runs each job at the interval it gives
// for the current tier.
enum class Tier { Active, Idle, Away };
Q_ENUM_NS(Tier)

} // namespace tiers

using tiers::Tier;

// "active", "idle" or "away".
QString tierName(Tier tier);
// The tier named exactly by text; any other text names none.
std::optional<Tier> parseTier(const QString &text);

} // namespace vaxo
