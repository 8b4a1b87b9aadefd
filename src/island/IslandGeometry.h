#pragma once

#include "agents/AgentSession.h"
#include "island/IslandMetrics.h"
#include "island/IslandMode.h"

#include <QList>
#include <QSizeF>

namespace vaxo {

// The island's size for a state, in points.
class IslandGeometry {
public:
    struct Input {
        IslandMode::Kind mode = IslandMode::Kind::Idle;
        bool music = false; // the collapsed island shows what is playing
        bool expanded = false;
        bool settingsOpen = false;
        bool backdropChosen = false;
        double mediaAllowance = 0; // what the music section adds to the card
        IslandMetrics metrics;
        QList<AgentSession> sessions;
    };

    static QSizeF islandSize(const Input &input);

    // The panel that hangs from the top of the display and holds the island at any size.
    static QSizeF panelSize(const IslandMetrics &metrics);

    // One session's row in the card (the first two sessions count toward the card's height).
    static double rowHeight(const AgentSession &session);
};

} // namespace vaxo
