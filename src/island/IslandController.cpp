#include "island/IslandController.h"

#include "base/Feeder.h"
#include "base/IslandScheduler.h"
#include "base/IslandSettings.h"
#include "island/IslandGeometry.h"
#include "island/IslandState.h"
#include "island/IslandWindow.h"
#include "island/PanelLayout.h"
#include "island/PanelPointer.h"
#include "media/MusicSection.h"
#include "platform/DesktopWindows.h"
#include "platform/PanelShell.h"
#include "platform/PointerMonitor.h"
#include "platform/TerminalFocus.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQuickView>
#include <QScreen>

namespace vaxo {

const QString IslandController::kFullscreenJob = QStringLiteral("island.fullscreen");

IslandController::IslandController(const IslandRoot::Parts &parts, QList<Feeder *> feeders, IslandScheduler &scheduler,
                                   Services services, Clock &clock, QObject *parent)
    : QObject(parent), m_parts(parts), m_state(*parts.state), m_feeders(std::move(feeders)), m_scheduler(scheduler),
      m_services(services), m_pointer(new PanelPointer(*parts.state, clock, this))
{
    connect(m_pointer, &PanelPointer::concealedChanged, this, [this] {
        applyShape();
        watchPointer();
        emit concealedChanged();
    });
    connect(&m_state, &IslandState::modeChanged, this, &IslandController::stripKindChanged);
    // A measurement belongs to what the view showed when it made it; made first, before the views
    // connect, so that the view's new report follows.
    for (auto signal : {&IslandState::expandedChanged, &IslandState::showSettingsChanged})
        connect(&m_state, signal, this, [this] { m_measured.reset(); });
    connect(parts.music, &MusicSection::trackChanged, this, &IslandController::stripKindChanged);
    connect(&m_services.pointer, &PointerMonitor::pressed, this, [this] { m_pointer->pressed(QCursor::pos()); });
    connect(&m_services.pointer, &PointerMonitor::moved, this, &IslandController::syncPointer);
    connect(&m_services.windows, &DesktopWindows::changed, this, [this] {
        // A window manager may raise a window above ours; take the top back.
        if (m_panel)
            m_panel->raise();
        checkFullscreen();
    });
}

IslandController::~IslandController()
{
    hide();
}

void IslandController::start()
{
    followScreens();
    if (m_parts.settings->enabled())
        show();
    else
        hide();
}

void IslandController::followScreens()
{
    auto *app = qGuiApp;
    const auto follow = [this](QScreen *screen) {
        connect(screen, &QScreen::geometryChanged, this, &IslandController::layoutPanel);
    };
    for (QScreen *screen : QGuiApplication::screens())
        follow(screen);
    connect(app, &QGuiApplication::screenAdded, this, [this, follow](QScreen *screen) {
        follow(screen);
        layoutPanel();
    });
    connect(app, &QGuiApplication::screenRemoved, this, &IslandController::layoutPanel);
    connect(app, &QGuiApplication::primaryScreenChanged, this, &IslandController::layoutPanel);
}

void IslandController::show()
{
    if (m_panel)
        return;
    m_root = new IslandRoot(m_parts, this);
    m_panel =
        IslandWindow::create(m_services.shell, QStringLiteral("VAXO Island"), QStringLiteral("IslandView.qml"), m_root);
    layoutPanel();
    m_panel->show();

    for (Feeder *feeder : std::as_const(m_feeders))
        feeder->start();

    // Resized after each change has been applied whole.
    for (auto signal : {&IslandState::expandedChanged, &IslandState::modeChanged, &IslandState::agentSessionsChanged,
                        &IslandState::showSettingsChanged})
        m_stateSubs << connect(&m_state, signal, this, &IslandController::updateInteractiveRect, Qt::QueuedConnection);
    m_stateSubs << connect(m_parts.settings, &IslandSettings::backdropChanged, this,
                           &IslandController::updateInteractiveRect, Qt::QueuedConnection);
    m_stateSubs << connect(m_parts.music, &MusicSection::trackChanged, this, &IslandController::updateInteractiveRect,
                           Qt::QueuedConnection);
    m_stateSubs << connect(&m_state, &IslandState::expandedChanged, this, &IslandController::watchPointer);
    m_panel->installEventFilter(this);

    QPointer<IslandController> self(this);
    m_scheduler.schedule({kFullscreenJob, kFullscreenActive, kFullscreenIdle, std::nullopt, [self] {
                              if (self)
                                  self->checkFullscreen();
                          }});
    checkFullscreen();
    // Sessions found at start reached the state before anything above listened.
    updateInteractiveRect();
}

void IslandController::hide()
{
    for (const auto &sub : std::as_const(m_stateSubs))
        disconnect(sub);
    m_stateSubs.clear();
    m_services.pointer.watch(false, false);
    if (!m_panel)
        return;
    m_panel->removeEventFilter(this);
    m_scheduler.unregister(kFullscreenJob);
    for (Feeder *feeder : std::as_const(m_feeders))
        feeder->stop();
    m_panel.reset();
}

void IslandController::focusSession(const QString &sessionId)
{
    const QList<AgentSession> &sessions = m_state.agentSessions();
    const auto session =
        std::find_if(sessions.begin(), sessions.end(), [&](const AgentSession &s) { return s.id == sessionId; });
    // A copy: collapsing may hand the state a new list.
    const std::optional<QString> tty =
        session != sessions.end() ? std::optional(session->tty.value_or(QString())) : std::nullopt;
    m_state.collapse();
    if (tty)
        m_services.terminals.focus(*tty);
}

QScreen *IslandController::targetScreen() const
{
    // No Linux display reports a notch: the island imitates one on the primary display.
    return QGuiApplication::primaryScreen();
}

void IslandController::layoutPanel()
{
    QScreen *screen = targetScreen();
    if (!m_panel || !screen)
        return;
    const IslandMetrics metrics = IslandMetrics::measure(screen->geometry().width(), 0, -1, -1);
    if (metrics != m_metrics) {
        m_metrics = metrics;
        emit metricsChanged();
    }
    m_display = screen->geometry();
    m_panel->setScreen(screen);
    m_panel->setGeometry(PanelLayout::panelFrame(m_display, m_metrics).toRect());
    updateInteractiveRect();
}

IslandMode::Kind IslandController::stripKind() const
{
    // What plays shows only while no agent needs the strip.
    const IslandMode::Kind kind = m_state.mode().kind;
    return kind == IslandMode::Kind::Idle && m_parts.music->playing() ? IslandMode::Kind::Music : kind;
}

bool IslandController::concealed() const
{
    return m_pointer->concealed();
}

void IslandController::reportMeasuredSize(double width, double height)
{
    const QSizeF size(width, height);
    if (width <= 1 || height <= 1 || size == m_measured)
        return;
    m_measured = size;
    updateInteractiveRect();
}

void IslandController::updateInteractiveRect()
{
    if (!m_panel)
        return;
    IslandGeometry::Input input;
    input.mode = stripKind();
    input.expanded = m_state.expanded();
    input.settingsOpen = m_state.showSettings();
    input.backdropChosen = !m_parts.settings->backdrop().isEmpty();
    input.mediaAllowance = m_parts.music->allowance();
    input.metrics = m_metrics;
    input.sessions = m_state.agentSessions();
    const QSizeF size = PanelLayout::clampMeasured(m_measured, IslandGeometry::islandSize(input));
    if (size != m_islandSize) {
        m_islandSize = size;
        emit islandSizeChanged();
    }
    const QRectF island = PanelLayout::islandFrame(m_display, size);
    m_pointer->setFrames(PanelPointer::Frames{island, PanelLayout::hotRect(island, input.expanded),
                                              PanelLayout::revealZone(m_display, m_metrics)});
    m_interactive = PanelLayout::interactiveRect(m_panel->size(), size, input.expanded);
    applyShape();
    syncPointer();
}

void IslandController::applyShape()
{
    if (!m_panel)
        return;
    const bool hidden = m_pointer->concealed();
    // The outline's top corners flare out beside the body.
    const double flare = m_state.expanded() ? IslandGeometry::kExpandedTopRadius : IslandGeometry::kCollapsedTopRadius;
    const QRectF drawn((m_panel->width() - m_islandSize.width()) / 2 - flare, 0, m_islandSize.width() + 2 * flare,
                       m_islandSize.height());
    m_services.shell.setShape(*m_panel, hidden ? QRect() : m_interactive.toAlignedRect(),
                              hidden ? QRect() : drawn.toAlignedRect());
}

void IslandController::syncPointer()
{
    if (m_panel)
        m_pointer->sync(QCursor::pos());
}

void IslandController::watchPointer()
{
    // Presses matter only while the card is open; motion only beside a full-screen window, where the
    // island cannot see the pointer come and go.
    m_services.pointer.watch(m_panel && m_state.expanded(), m_panel && m_pointer->fullscreen());
}

void IslandController::checkFullscreen()
{
    QScreen *screen = targetScreen();
    if (!m_panel || !screen)
        return;
    const bool covered = PanelLayout::coveredByFullscreen(m_services.windows.windows(), screen->geometry());
    if (covered == m_pointer->fullscreen())
        return;
    m_pointer->setFullscreen(covered);
    watchPointer();
    syncPointer();
}

bool IslandController::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::MouseMove:
        syncPointer();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vaxo
