#pragma once

#include "island/IslandMetrics.h"
#include "island/IslandMode.h"
#include "island/IslandRoot.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QSizeF>

#include <memory>
#include <optional>

class QQuickView;
class QScreen;

namespace vaxo {

class Clock;
class DesktopWindows;
class Feeder;
class IslandScheduler;
class PanelPointer;
class PanelShell;
class PointerMonitor;
class TerminalFocus;

// Owns the island's window: keeps it at the top centre of the target display and sized for the
// island state, lets clicks outside the island fall through, opens the card on hover and closes it on
// a click elsewhere, and hides the island beside full-screen windows. Starts and stops the island's
// feeders with the window. Main thread only.
class IslandController : public QObject {
    Q_OBJECT
    Q_PROPERTY(QSizeF islandSize READ islandSize NOTIFY islandSizeChanged)
    Q_PROPERTY(vaxo::IslandMode::Kind stripKind READ stripKind NOTIFY stripKindChanged)
    Q_PROPERTY(double notchHeight READ notchHeight NOTIFY metricsChanged)
    Q_PROPERTY(bool concealed READ concealed NOTIFY concealedChanged)
    Q_PROPERTY(int fadeDuration READ fadeDuration NOTIFY concealedChanged)

public:
    static const QString kFullscreenJob; // "island.fullscreen"
    static constexpr double kFullscreenActive = 10;
    static constexpr double kFullscreenIdle = 30;
    static constexpr int kConcealMs = 400;
    static constexpr int kRevealMs = 250;

    struct Services {
        PanelShell &shell;
        PointerMonitor &pointer;
        DesktopWindows &windows;
        TerminalFocus &terminals;
    };

    // feeders start in this order when the island first shows, and stop in it when it hides; parts
    // are what the views show.
    IslandController(const IslandRoot::Parts &parts, QList<Feeder *> feeders, IslandScheduler &scheduler,
                     Services services, Clock &clock, QObject *parent = nullptr);
    ~IslandController() override;

    // Follows display changes, then shows or hides the island as the setting says.
    void start();
    void show();
    void hide();
    void layoutPanel();
    void updateInteractiveRect();

    // Closes the card and brings the session's terminal, and its tab or pane, to the front; a session
    // that is gone only closes the card.
    Q_INVOKABLE void focusSession(const QString &sessionId);

    // The view's own size of the island, reported when it changes.
    Q_INVOKABLE void reportMeasuredSize(double width, double height);

    QQuickView *panel() const { return m_panel.get(); }
    const IslandMetrics &metrics() const { return m_metrics; }
    QSizeF islandSize() const { return m_islandSize; }
    IslandMode::Kind stripKind() const;
    double notchHeight() const { return m_metrics.notchHeight; }
    bool concealed() const;
    int fadeDuration() const { return concealed() ? kConcealMs : kRevealMs; }
    PanelPointer &pointer() const { return *m_pointer; }

signals:
    void islandSizeChanged();
    void stripKindChanged();
    void metricsChanged();
    void concealedChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QScreen *targetScreen() const;
    void followScreens();
    void checkFullscreen();
    void syncPointer();
    void watchPointer();
    void applyShape();

    IslandRoot::Parts m_parts;
    IslandState &m_state;
    QList<Feeder *> m_feeders;
    IslandScheduler &m_scheduler;
    Services m_services;
    PanelPointer *m_pointer;
    std::unique_ptr<QQuickView> m_panel;
    QPointer<IslandRoot> m_root;
    QList<QMetaObject::Connection> m_stateSubs;
    IslandMetrics m_metrics;
    QRectF m_display;
    QRectF m_interactive; // in the panel's coordinates
    QSizeF m_islandSize;
    std::optional<QSizeF> m_measured;
};

} // namespace vaxo
