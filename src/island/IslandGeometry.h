#pragma once

#include "agents/AgentSession.h"
#include "island/IslandMetrics.h"
#include "island/IslandMode.h"

#include <QList>
#include <QSizeF>

namespace vaxo {

// The island's size for a state, in points, and the measures of the card's parts that the size is
// built from. The views lay the card out with the same measures.
class IslandGeometry {
public:
    // One session row: its header line, and the lines that only some rows have.
    static constexpr double kRowHeader = 40;
    static constexpr double kRowLine = 17;        // the last prompt, the action, each task
    static constexpr double kTasksSummary = 18;   // "1 in progress · 2 open"
    static constexpr double kTasksCompleted = 15; // "3 completed"
    static constexpr double kRowGap = 8;
    // Below the rows: the "+N more running" line, or the empty state's smaller allowance.
    static constexpr double kListAllowance = 44;
    static constexpr double kEmptyListAllowance = 22;
    // The card: its top area (the character, the waiting caption) and the sections' area.
    static constexpr double kCardTop = 216;
    static constexpr double kCardSections = 360;
    static constexpr double kCardBottom = 26;
    // The settings card reports what more rows need, and the island grows for them within bounds.
    static constexpr double kSettingsBody = 346;
    static constexpr double kBackdropRows = 60; // the backdrop's "Depth" and "Focus" rows
    // What the music section adds while a track is known: more while it plays, for the position bar.
    static constexpr double kMediaPlaying = 40;
    static constexpr double kMediaPaused = 34;
    static constexpr double kPanelSlack = 24; // the tallest card leaves this much of the panel free
    // The outline's radii: how far the top corners flare out beside the body, and the bottom corners.
    static constexpr double kCollapsedTopRadius = 6;
    static constexpr double kCollapsedBottomRadius = 14;
    static constexpr double kExpandedTopRadius = 14;
    static constexpr double kExpandedBottomRadius = 30;

    struct Input {
        IslandMode::Kind mode = IslandMode::Kind::Idle;
        bool expanded = false;
        bool settingsOpen = false;
        bool backdropChosen = false;
        double mediaAllowance = 0; // kMediaPlaying, kMediaPaused or 0
        IslandMetrics metrics;
        QList<AgentSession> sessions;
    };

    static QSizeF islandSize(const Input &input);

    // The panel that hangs from the top of the display and holds the island at any size.
    static QSizeF panelSize(const IslandMetrics &metrics);

    // One session's row in the card (the first two sessions count toward the card's height).
    static double rowHeight(const AgentSession &session);
    // A row shows the last prompt when there is one, and the last action only while working (or
    // what stopped a failed turn).
    static bool showsPrompt(const AgentSession &session);
    static bool showsAction(const AgentSession &session);
};

} // namespace vaxo
