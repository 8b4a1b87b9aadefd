#include "island/PanelLayout.h"

#include "island/IslandGeometry.h"

#include <algorithm>
#include <cmath>

namespace vaxo::PanelLayout {
namespace {

QRectF grown(const QRectF &rect, double by)
{
    return rect.adjusted(-by, -by, by, by);
}

bool near(int a, int b)
{
    return std::abs(a - b) <= kFullscreenTolerance;
}

} // namespace

QRectF panelFrame(const QRectF &display, const IslandMetrics &metrics)
{
    const QSizeF size = IslandGeometry::panelSize(metrics);
    return {display.center().x() - size.width() / 2, display.top(), size.width(), size.height()};
}

QSizeF clampMeasured(const std::optional<QSizeF> &measured, const QSizeF &computed)
{
    if (!measured)
        return computed;
    return {std::clamp(measured->width(), computed.width(), computed.width() + kMeasuredExtraWidth),
            std::clamp(measured->height(), computed.height(), computed.height() + kMeasuredExtraHeight)};
}

QRectF interactiveRect(const QSizeF &panel, const QSizeF &island, bool expanded)
{
    const double m = expanded ? kExpandedMargin : kCollapsedMargin;
    return {(panel.width() - island.width()) / 2 - m, 0, island.width() + 2 * m, island.height() + m};
}

QRectF islandFrame(const QRectF &display, const QSizeF &island)
{
    return {display.center().x() - island.width() / 2, display.top(), island.width(), island.height()};
}

QRectF hotRect(const QRectF &islandFrame, bool expanded)
{
    return grown(islandFrame, expanded ? kExpandedMargin : kCollapsedMargin);
}

QRectF revealZone(const QRectF &display, const IslandMetrics &metrics)
{
    const double width = std::max(metrics.notchWidth, 190.0) + 80;
    const double height = std::max(metrics.notchHeight, 32.0) + 4;
    return {display.center().x() - width / 2, display.top(), width, height};
}

bool pressCollapses(const QPointF &pointer, const QRectF &islandFrame)
{
    return !grown(islandFrame, kClickMargin).contains(pointer);
}

bool beyondReveal(const QPointF &pointer, const QRectF &islandFrame)
{
    return !grown(islandFrame, kRevealReach).contains(pointer);
}

bool coveredByFullscreen(const QList<DesktopWindow> &windows, const QRect &display)
{
    return std::any_of(windows.begin(), windows.end(), [&](const DesktopWindow &w) {
        if (w.fullscreen && display.contains(w.bounds.center()))
            return true;
        return near(w.bounds.x(), display.x()) && near(w.bounds.y(), display.y()) &&
               near(w.bounds.width(), display.width()) && near(w.bounds.height(), display.height());
    });
}

} // namespace vaxo::PanelLayout
