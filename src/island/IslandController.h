#pragma once

#include "island/IslandMetrics.h"

#include <QObject>
#include <QSizeF>

#include <memory>

class QQuickView;
class QScreen;
class QSettings;

namespace vaxo {

class IslandClipboard;
class IslandState;
class PanelShell;

// Owns the island's window: keeps it at the top centre of the target display, sized for the island
// state, and lets clicks outside the island fall through to what lies below.
class IslandController : public QObject {
    Q_OBJECT
    Q_PROPERTY(double islandWidth READ islandWidth NOTIFY islandSizeChanged)
    Q_PROPERTY(double islandHeight READ islandHeight NOTIFY islandSizeChanged)

public:
    IslandController(IslandState &state, IslandClipboard &clipboard, PanelShell &shell, QSettings &settings,
                     QObject *parent = nullptr);
    ~IslandController() override;

    // Follows display changes, then shows or hides the island as the setting says.
    void start();
    void show();
    void hide();
    void layoutPanel();
    void updateInteractiveRect();

    // The "vaxoIslandEnabled" setting: true unless stored as false.
    bool enabled() const;

    QQuickView *panel() const { return m_panel.get(); }
    const IslandMetrics &metrics() const { return m_metrics; }
    double islandWidth() const { return m_islandSize.width(); }
    double islandHeight() const { return m_islandSize.height(); }

signals:
    void islandSizeChanged();

private:
    QScreen *targetScreen() const;
    // The animation gate follows the island; the mood follows the user's idleness.
    void connectActivity();

    IslandState &m_state;
    IslandClipboard &m_clipboard;
    PanelShell &m_shell;
    QSettings &m_settings;
    std::unique_ptr<QQuickView> m_panel;
    QList<QMetaObject::Connection> m_stateSubs;
    IslandMetrics m_metrics;
    QSizeF m_islandSize;
};

} // namespace vaxo
