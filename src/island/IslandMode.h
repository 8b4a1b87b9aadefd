#pragma once

#include <QObject>
#include <QString>

namespace vaxo {

// The kinds have a namespace of their own so that the views can name them.
namespace island_modes {
Q_NAMESPACE

// Idle, agents at work, a session that has just finished; music is the idle island showing what
// plays.
enum class Kind { Idle, Agents, Finished, Music };
Q_ENUM_NS(Kind)

} // namespace island_modes

// What the collapsed island shows: a session that has just finished, the agents at work, or nothing.
struct IslandMode {
    using Kind = island_modes::Kind;

    Kind kind = Kind::Idle;
    QString finishedLabel; // Finished only
    int working = 0;       // Agents only
    int waiting = 0;       // Agents only

    bool operator==(const IslandMode &) const = default;
};

} // namespace vaxo
