#pragma once

#include <QString>

namespace vaxo {

// What the collapsed island shows: a session that has just finished, the agents at work, or nothing.
struct IslandMode {
    enum class Kind { Idle, Agents, Finished };

    Kind kind = Kind::Idle;
    QString finishedLabel; // Finished only
    int working = 0;       // Agents only
    int waiting = 0;       // Agents only

    // "idle", "agents", "finished": what the views switch on.
    QString kindName() const;

    bool operator==(const IslandMode &) const = default;
};

} // namespace vaxo
