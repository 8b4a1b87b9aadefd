#include "island/summon/SummonPanel.h"

#include "base/AppActivity.h"
#include "base/IslandSettings.h"
#include "face/IslandVoice.h"
#include "island/IslandWindow.h"
#include "island/summon/SummonPlacement.h"
#include "island/summon/SummonView.h"
#include "platform/PanelShell.h"

#include <QGuiApplication>
#include <QQuickView>
#include <QScreen>

namespace vaxo {
namespace {

// Linux reports no notch: every display counts as one without.
QList<SummonPlacement::Screen> screens()
{
    QList<SummonPlacement::Screen> list;
    for (QScreen *screen : QGuiApplication::screens())
        list.append({screen->geometry(), 0});
    return list;
}

} // namespace

SummonPanel::SummonPanel(const IslandRoot::Parts &parts, IslandController *controller, SummonView &view,
                         Services services, QObject *parent)
    : QObject(parent), m_parts(parts), m_controller(controller), m_view(view), m_services(services)
{
}

SummonPanel::~SummonPanel() = default;

QScreen *SummonPanel::targetScreen() const
{
    const QList<QScreen *> all = QGuiApplication::screens();
    const int index = SummonPlacement::screenFor(screens(), int(all.indexOf(QGuiApplication::primaryScreen())));
    return index < 0 ? nullptr : all.at(index);
}

QPointF SummonPanel::origin() const
{
    QScreen *screen = targetScreen();
    return screen ? SummonPlacement::origin({screen->geometry(), 0}) : QPointF();
}

void SummonPanel::show()
{
    const bool opening = !m_panel;
    if (opening) {
        m_panel = IslandWindow::create(m_services.shell, QStringLiteral("Vaxo"),
                                       QStringLiteral("summon/SummonCard.qml"), new IslandRoot(m_parts, m_controller),
                                       {{QStringLiteral("summon"), QVariant::fromValue(this)}});
    }
    if (QScreen *screen = targetScreen())
        m_panel->setScreen(screen);
    const int side = int(SummonPlacement::kSide);
    m_panel->setGeometry(QRect(origin().toPoint(), QSize(side, side)));
    const QRect whole(0, 0, side, side);
    m_services.shell.setShape(*m_panel, whole, whole);
    m_panel->show();
    m_panel->raise();
    m_parts.activity->setSummonShowing(true);
    if (opening && m_parts.settings->speak())
        m_services.voice.say(m_view.line(), kSpeechRate);
}

void SummonPanel::hide()
{
    if (!m_panel)
        return;
    QQuickView *gone = m_panel.release();
    gone->hide();
    gone->deleteLater();
    m_parts.activity->setSummonShowing(false);
}

void SummonPanel::toggle()
{
    if (m_panel)
        hide();
    else
        show();
}

} // namespace vaxo
