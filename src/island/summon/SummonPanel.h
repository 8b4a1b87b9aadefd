#pragma once

#include "island/IslandRoot.h"

#include <QObject>
#include <QPointF>

#include <memory>

Q_MOC_INCLUDE("island/summon/SummonView.h")

class QQuickView;
class QScreen;

namespace vaxo {

class IslandController;
class IslandVoice;
class PanelShell;
class SummonView;

// The floating window that shows Vaxo on her own, 260 points square under the top centre of the
// display: above every window, on every workspace, never taking the focus. Built at each show and
// dropped at each hide, so that it always opens where the display is now. While it shows, the island
// counts as busy; as it opens, she says her line if the user lets her speak. Main thread only.
class SummonPanel : public QObject {
    Q_OBJECT
    Q_PROPERTY(vaxo::SummonView *view READ view CONSTANT)
public:
    static constexpr double kSpeechRate = 0.5;

    struct Services {
        PanelShell &shell;
        IslandVoice &voice;
    };

    // parts and controller are what the face reads, as in the island.
    SummonPanel(const IslandRoot::Parts &parts, IslandController *controller, SummonView &view, Services services,
                QObject *parent = nullptr);
    ~SummonPanel() override;

    void show();
    // Safe from the panel's own event handlers: the window goes when they are done.
    Q_INVOKABLE void hide();
    // What the hot key does.
    void toggle();

    // The panel's top-left corner on the display it goes on, in screen coordinates.
    QPointF origin() const;
    QQuickView *panel() const { return m_panel.get(); }
    SummonView *view() const { return &m_view; }

private:
    QScreen *targetScreen() const;

    IslandRoot::Parts m_parts;
    IslandController *m_controller;
    SummonView &m_view;
    Services m_services;
    std::unique_ptr<QQuickView> m_panel;
};

} // namespace vaxo
