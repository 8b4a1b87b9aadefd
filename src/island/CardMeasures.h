#pragma once

#include "island/IslandGeometry.h"

#include <QObject>

namespace vaxo {

// The card's measures for the views, from the same place that sizes the island, so that what is drawn
// and what takes the pointer agree.
class CardMeasures : public QObject {
    Q_OBJECT
    Q_PROPERTY(double rowHeader MEMBER m_rowHeader CONSTANT)
    Q_PROPERTY(double rowPadding MEMBER m_rowPadding CONSTANT)
    Q_PROPERTY(double rowLine MEMBER m_rowLine CONSTANT)
    Q_PROPERTY(double tasksSummary MEMBER m_tasksSummary CONSTANT)
    Q_PROPERTY(double tasksCompleted MEMBER m_tasksCompleted CONSTANT)
    Q_PROPERTY(double rowGap MEMBER m_rowGap CONSTANT)
    Q_PROPERTY(double listAllowance MEMBER m_listAllowance CONSTANT)
    Q_PROPERTY(double cardTop MEMBER m_cardTop CONSTANT)
    Q_PROPERTY(double cardBottom MEMBER m_cardBottom CONSTANT)
    Q_PROPERTY(double settingsRow MEMBER m_settingsRow CONSTANT)
    Q_PROPERTY(double clipRow MEMBER m_clipRow CONSTANT)
    Q_PROPERTY(double collapsedTopRadius MEMBER m_collapsedTopRadius CONSTANT)
    Q_PROPERTY(double collapsedBottomRadius MEMBER m_collapsedBottomRadius CONSTANT)
    Q_PROPERTY(double expandedTopRadius MEMBER m_expandedTopRadius CONSTANT)
    Q_PROPERTY(double expandedBottomRadius MEMBER m_expandedBottomRadius CONSTANT)

public:
    // Each row of the settings card; a backdrop adds two.
    static constexpr double kSettingsRow = IslandGeometry::kBackdropRows / 2;
    static constexpr double kClipRow = 44;

    using QObject::QObject;

private:
    double m_rowHeader = IslandGeometry::kRowHeader;
    double m_rowPadding = 12; // above the label and below the row's last line, within the header's height
    double m_rowLine = IslandGeometry::kRowLine;
    double m_tasksSummary = IslandGeometry::kTasksSummary;
    double m_tasksCompleted = IslandGeometry::kTasksCompleted;
    double m_rowGap = IslandGeometry::kRowGap;
    double m_listAllowance = IslandGeometry::kListAllowance;
    double m_cardTop = IslandGeometry::kCardTop;
    double m_cardBottom = IslandGeometry::kCardBottom;
    double m_settingsRow = kSettingsRow;
    double m_clipRow = kClipRow;
    double m_collapsedTopRadius = IslandGeometry::kCollapsedTopRadius;
    double m_collapsedBottomRadius = IslandGeometry::kCollapsedBottomRadius;
    double m_expandedTopRadius = IslandGeometry::kExpandedTopRadius;
    double m_expandedBottomRadius = IslandGeometry::kExpandedBottomRadius;
};

} // namespace vaxo
