#include "island/IslandGeometry.h"

#include <algorithm>

namespace vaxo {
namespace {

QSizeF collapsedSize(const IslandGeometry::Input &in)
{
    using Kind = IslandMode::Kind;
    const double nw = in.metrics.notchWidth;
    const double nh = in.metrics.notchHeight;
    if (in.metrics.hasNotch) {
        const double extra = in.mode == Kind::Agents ? 96 : in.mode == Kind::Music ? 104 : 74;
        return {nw + extra, nh};
    }
    if (in.mode == Kind::Agents)
        return {350, 38};
    if (in.mode == Kind::Music)
        return {300, 38};
    return {190, 32};
}

} // namespace

bool IslandGeometry::showsPrompt(const AgentSession &s)
{
    return s.lastPrompt && !s.lastPrompt->isEmpty();
}

bool IslandGeometry::showsAction(const AgentSession &s)
{
    return (s.isWorking() && s.lastAction && !s.lastAction->isEmpty()) || s.hasFailed();
}

double IslandGeometry::rowHeight(const AgentSession &s)
{
    double h = kRowHeader + (showsPrompt(s) ? kRowLine : 0) + (showsAction(s) ? kRowLine : 0);
    if (s.tasks)
        h += (s.tasks->done > 0 ? kTasksCompleted : 0) + kRowLine * double(s.tasks->items.size()) + kTasksSummary;
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
        return {width, nh + kSettingsBody + kCardBottom + (in.backdropChosen ? kBackdropRows : 0)};

    double rows = 0;
    for (qsizetype i = 0; i < std::min<qsizetype>(2, in.sessions.size()); ++i)
        rows += rowHeight(in.sessions.at(i)) + kRowGap;
    const double list = in.sessions.isEmpty() ? kEmptyListAllowance : kListAllowance;
    const double height = nh + kCardTop + kCardSections + rows + list + kCardBottom + in.mediaAllowance;
    return {width, std::min(height, panelSize(in.metrics).height() - kPanelSlack)};
}

} // namespace vaxo
