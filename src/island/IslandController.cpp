#include "island/IslandController.h"

#include "app/AppActivity.h"
#include "app/IslandScheduler.h"
#include "clipboard/IslandClipboard.h"
#include "island/IslandGeometry.h"
#include "island/IslandState.h"
#include "platform/PanelShell.h"

#include <QGuiApplication>
#include <QPointer>
#include <QQuickView>
#include <QScreen>
#include <QSettings>

namespace vaxo {
namespace {

// Margins around the island that still count as the island for the pointer.
constexpr double kCollapsedMargin = 6;
constexpr double kExpandedMargin = 18;

} // namespace

IslandController::IslandController(IslandState &state, IslandClipboard &clipboard, PanelShell &shell,
                                   QSettings &settings, QObject *parent)
    : QObject(parent), m_state(state), m_clipboard(clipboard), m_shell(shell), m_settings(settings)
{
}

IslandController::~IslandController()
{
    hide();
}

bool IslandController::enabled() const
{
    const QString stored = m_settings.value(QStringLiteral("vaxoIslandEnabled")).toString().toLower();
    return stored != QLatin1String("false");
}

void IslandController::start()
{
    auto *app = qGuiApp;
    connect(app, &QGuiApplication::screenAdded, this, &IslandController::layoutPanel);
    connect(app, &QGuiApplication::screenRemoved, this, &IslandController::layoutPanel);
    connect(app, &QGuiApplication::primaryScreenChanged, this, &IslandController::layoutPanel);
    for (QScreen *screen : QGuiApplication::screens())
        connect(screen, &QScreen::geometryChanged, this, &IslandController::layoutPanel);
    connect(app, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        connect(screen, &QScreen::geometryChanged, this, &IslandController::layoutPanel);
    });
    if (enabled())
        show();
    else
        hide();
}

void IslandController::show()
{
    if (m_panel)
        return;
    m_panel = std::make_unique<QQuickView>();
    m_panel->setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool | Qt::WindowDoesNotAcceptFocus);
    m_panel->setColor(Qt::transparent);
    m_panel->setTitle(QStringLiteral("VAXO Island"));
    m_panel->setResizeMode(QQuickView::SizeRootObjectToView);
    m_panel->setInitialProperties({{QStringLiteral("islandState"), QVariant::fromValue(&m_state)},
                                   {QStringLiteral("controller"), QVariant::fromValue(this)}});
    m_panel->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vaxo/Island/IslandView.qml")));

    layoutPanel();
    m_shell.prepare(*m_panel);
    m_panel->show();

    // The feeders, in this order: session watching, then the clipboard history.
    m_state.startWatching();
    m_clipboard.start();
    for (auto signal : {&IslandState::expandedChanged, &IslandState::modeChanged, &IslandState::agentSessionsChanged,
                        &IslandState::showSettingsChanged})
        m_stateSubs << connect(&m_state, signal, this, &IslandController::updateInteractiveRect, Qt::QueuedConnection);
    connectActivity();
    IslandScheduler::shared().startTierWatchIfNeeded();
}

void IslandController::connectActivity()
{
    AppActivity &gate = AppActivity::shared();
    gate.followIsland(
        [state = QPointer<IslandState>(&m_state)] { return state ? state->busyInputs() : IslandBusyInputs{}; });
    for (auto signal : {&IslandState::expandedChanged, &IslandState::pointerInsideChanged,
                        &IslandState::pinnedByAlertChanged, &IslandState::showSettingsChanged,
                        &IslandState::justFinishedAgentChanged, &IslandState::agentSessionsChanged})
        m_stateSubs << connect(&m_state, signal, &gate, &AppActivity::recomputeIslandBusy, Qt::QueuedConnection);

    IslandScheduler &scheduler = IslandScheduler::shared();
    m_state.setUserIdle(scheduler.userIdle());
    m_stateSubs << connect(&scheduler, &IslandScheduler::userIdleChanged, &m_state,
                           [this, &scheduler] { m_state.setUserIdle(scheduler.userIdle()); });
}

void IslandController::hide()
{
    for (const auto &sub : std::as_const(m_stateSubs))
        disconnect(sub);
    m_stateSubs.clear();
    if (!m_panel)
        return;
    m_state.collapse();
    m_state.stopWatching();
    m_clipboard.stop();
    m_panel.reset();
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
    m_metrics = IslandMetrics::measure(screen->geometry().width(), 0, -1, -1);
    const QSizeF size = IslandGeometry::panelSize(m_metrics);
    const QRect display = screen->geometry();
    m_panel->setScreen(screen);
    m_panel->setGeometry(int(display.center().x() + 1 - size.width() / 2), display.top(), int(size.width()),
                         int(size.height()));
    updateInteractiveRect();
}

void IslandController::updateInteractiveRect()
{
    if (!m_panel)
        return;
    IslandGeometry::Input input;
    input.mode = m_state.mode().kind;
    input.expanded = m_state.expanded();
    input.settingsOpen = m_state.showSettings();
    input.metrics = m_metrics;
    input.sessions = m_state.agentSessions();
    const QSizeF size = IslandGeometry::islandSize(input);
    if (size != m_islandSize) {
        m_islandSize = size;
        emit islandSizeChanged();
    }

    const double margin = m_state.expanded() ? kExpandedMargin : kCollapsedMargin;
    const double panelWidth = m_panel->width();
    const QRectF island((panelWidth - size.width()) / 2, 0, size.width(), size.height());
    const QRectF hot = island.adjusted(-margin, 0, margin, margin);
    m_shell.setShape(*m_panel, hot.toAlignedRect(), island.toAlignedRect());
}

} // namespace vaxo
