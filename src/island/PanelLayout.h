#pragma once

#include "island/IslandMetrics.h"
#include "platform/DesktopWindows.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <optional>

namespace vaxo {

// Where the island's window and its parts go on a display. Rectangles are in device-independent
// pixels on the whole desktop with y growing downward, unless said otherwise.
namespace PanelLayout {

inline constexpr double kCollapsedMargin = 6; // around the collapsed island, still the island's
inline constexpr double kExpandedMargin = 18; // around the open card
inline constexpr double kClickMargin = 6;     // a click closer than this to the card does not close it
inline constexpr double kRevealReach = 70;    // over a full-screen window, farther than this conceals
inline constexpr double kMeasuredExtraWidth = 60;
inline constexpr double kMeasuredExtraHeight = 80;
inline constexpr double kFullscreenTolerance = 2;

// The panel: centred on the display, its top edge on the display's top edge.
QRectF panelFrame(const QRectF &display, const IslandMetrics &metrics);
// The size the view measured, kept between the computed size and that plus 60 by 80, each axis by
// itself; the computed size when nothing was measured.
QSizeF clampMeasured(const std::optional<QSizeF> &measured, const QSizeF &computed);
// The island in the panel's own coordinates, grown by the pointer margin to the left, right and
// bottom: the part of the panel that takes the pointer.
QRectF interactiveRect(const QSizeF &panel, const QSizeF &island, bool expanded);
// The island on the display: centred, hanging from the top edge.
QRectF islandFrame(const QRectF &display, const QSizeF &island);
// Where the pointer counts as on the island.
QRectF hotRect(const QRectF &islandFrame, bool expanded);
// While a full-screen window hides the island, the pointer here brings it back.
QRectF revealZone(const QRectF &display, const IslandMetrics &metrics);
// A press here closes the open card.
bool pressCollapses(const QPointF &pointer, const QRectF &islandFrame);
// Over a full-screen window, the pointer here hides the revealed island again.
bool beyondReveal(const QPointF &pointer, const QRectF &islandFrame);
// A window on the display is full screen, or covers it within two pixels.
bool coveredByFullscreen(const QList<DesktopWindow> &windows, const QRect &display);

} // namespace PanelLayout
} // namespace vaxo
