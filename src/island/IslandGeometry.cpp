#include "island/IslandGeometry.h"

#include <algorithm>

namespace vaxo {
namespace {

QSizeF collapsedSize(const IslandGeometry::Input &in)
{
    const double nw = in.metrics.notchWidth;
    const double nh = in.metrics.notchHeight;
    const bool agents = in.mode == IslandMode::Kind::Agents;
    if (in.metrics.hasNotch) {
        if (in.music && !agents)
            return {nw + 104, nh};
        return {agents ? nw + 96 : nw + 74, nh};
    }
    if (agents)
        return {350, 38};
    if (in.music)
        return {300, 38};
    return {190, 32};
}

} // namespace

double IslandGeometry::rowHeight(const AgentSession &s)
{
    double h = (s.lastPrompt && !s.lastPrompt->isEmpty()) ? 57 : 40;
    if (s.isWorking() && s.lastAction && !s.lastAction->isEmpty())
        h += 17;
    if (s.tasks)
        h += (s.tasks->done > 0 ? 15 : 0) + 17.0 * double(s.tasks->items.size()) + 18;
    return h;
}

QSizeF IslandGeometry::panelSize(const IslandMetrics &m)
{
    return {std::max(m.notchWidth + 340, 660.0), m.notchHeight + 860};
}

QSizeF IslandGeometry::islandSize(const Input &in)
{
    if (!in.expanded)
        return collapsedSize(in);
    const double nw = in.metrics.notchWidth;
    const double nh = in.metrics.notchHeight;
    const double width = std::max(nw + 260, 500.0);
    if (in.settingsOpen)
        return {width, nh + 346 + 26 + (in.backdropChosen ? 60 : 0)};

    double rows = 0;
    for (qsizetype i = 0; i < std::min<qsizetype>(2, in.sessions.size()); ++i)
        rows += rowHeight(in.sessions.at(i)) + 8;
    const double listAllowance = in.sessions.isEmpty() ? 22 : 44;
    const double height = nh + 216 + 360 + rows + listAllowance + 26 + in.mediaAllowance;
    return {width, std::min(height, panelSize(in.metrics).height() - 24)};
}

} // namespace vaxo
