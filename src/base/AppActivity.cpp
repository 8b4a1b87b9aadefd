#include "base/AppActivity.h"

#include "platform/DisplayStateSource.h"
#include "platform/LowPowerSource.h"
#include "platform/WindowVisibilitySource.h"

#include <QDebug>

#include <algorithm>

namespace vaxo {
namespace {

QString yesNo(bool flag)
{
    return flag ? QStringLiteral("YES") : QStringLiteral("NO");
}

bool counts(const WindowVisibilitySource::Window &w)
{
    return w.visible && !w.minimised && w.normalLevel && w.unoccluded && w.width > 200 && w.height > 200;
}

} // namespace

AppActivity::Switches AppActivity::Switches::fromEnvironment()
{
    return {qEnvironmentVariableIsSet("VAXO_NO_ANIM"), qEnvironmentVariableIsSet("VAXO_ACTIVITY_DEBUG")};
}

AppActivity::AppActivity(Sources sources, Switches switches, QObject *parent)
    : QObject(parent), m_switches(switches), m_lowPowerSource(sources.lowPower), m_windows(sources.windows)
{
    if (auto *display = sources.display) {
        display->setParent(this);
        m_displayUsable = !display->isLost();
        connect(display, &DisplayStateSource::displayLost, this, &AppActivity::onDisplayLost);
        connect(display, &DisplayStateSource::displayBack, this, &AppActivity::onDisplayBack);
    }
    if (m_lowPowerSource) {
        m_lowPowerSource->setParent(this);
        m_lowPower = m_lowPowerSource->isLowPower();
        connect(m_lowPowerSource, &LowPowerSource::powerStateChanged, this, &AppActivity::readLowPower);
    }
    if (m_windows) {
        m_windows->setParent(this);
        connect(m_windows, &WindowVisibilitySource::windowsChanged, this, &AppActivity::recomputeWindows);
    }
    recomputeWindows();
    recomputeIslandBusy();
}

bool AppActivity::islandAnimating() const
{
    if (m_switches.forceOff)
        return false;
    if (!m_displayUsable)
        return false;
    if (m_lowPower)
        return false;
    return m_islandBusy;
}

void AppActivity::updateGate(const std::function<void()> &change)
{
    const bool before = islandAnimating();
    change();
    const bool after = islandAnimating();
    if (after == before)
        return;
    if (m_switches.debug)
        qInfo().noquote() << QStringLiteral("[activity] islandAnimating=%1").arg(yesNo(after));
    emit islandAnimatingChanged();
}

void AppActivity::setSummonShowing(bool showing)
{
    if (showing == m_summonShowing)
        return;
    m_summonShowing = showing;
    emit summonShowingChanged();
    recomputeIslandBusy();
}

void AppActivity::followIsland(std::function<IslandBusyInputs()> read)
{
    m_readIsland = std::move(read);
    recomputeIslandBusy();
}

void AppActivity::recomputeIslandBusy()
{
    const IslandBusyInputs in = m_readIsland ? m_readIsland() : IslandBusyInputs{};
    const bool busy = in.expanded || in.pointerInside || in.pinnedByAlert || in.showSettings || in.justFinished ||
                      in.activeAgents > 0 || m_summonShowing;
    if (busy == m_islandBusy)
        return;
    updateGate([&] {
        m_islandBusy = busy;
        emit islandBusyChanged();
        if (!m_switches.debug)
            return;
        qInfo().noquote() << QStringLiteral("[activity] islandBusy=%1  expanded=%2 pointer=%3 pinned=%4 settings=%5 "
                                            "finished=%6 agents=%7 summon=%8")
                                 .arg(yesNo(busy), yesNo(in.expanded), yesNo(in.pointerInside), yesNo(in.pinnedByAlert),
                                      yesNo(in.showSettings), yesNo(in.justFinished))
                                 .arg(in.activeAgents)
                                 .arg(yesNo(m_summonShowing));
    });
}

void AppActivity::recomputeWindows()
{
    if (!m_windows)
        return;
    const QList<WindowVisibilitySource::Window> windows = m_windows->windows();
    const bool visible = std::any_of(windows.begin(), windows.end(), counts);
    if (visible == m_windowVisible)
        return;
    m_windowVisible = visible;
    emit windowVisibleChanged();
    if (m_switches.debug) {
        qInfo().noquote()
            << QStringLiteral("[activity] windowVisible=%1 display=%2").arg(yesNo(visible), yesNo(m_displayUsable));
    }
}

void AppActivity::onDisplayLost()
{
    if (!m_displayUsable)
        return;
    updateGate([this] {
        m_displayUsable = false;
        emit displayUsableChanged();
    });
}

void AppActivity::onDisplayBack()
{
    if (!m_displayUsable) {
        updateGate([this] {
            m_displayUsable = true;
            emit displayUsableChanged();
        });
    }
    recomputeWindows();
    emit displayReturned();
}

void AppActivity::readLowPower()
{
    const bool low = m_lowPowerSource->isLowPower();
    if (low == m_lowPower)
        return;
    updateGate([&] {
        m_lowPower = low;
        emit lowPowerChanged();
    });
}

} // namespace vaxo
