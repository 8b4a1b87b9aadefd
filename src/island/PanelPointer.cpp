#include "island/PanelPointer.h"

#include "base/Clock.h"
#include "base/Timer.h"
#include "island/IslandState.h"
#include "island/PanelLayout.h"

#include <QDebug>

namespace vaxo {

PanelPointer::PanelPointer(IslandState &state, Clock &clock, QObject *parent)
    : QObject(parent), m_state(state), m_hover(clock.createTimer(this)),
      m_debug(qEnvironmentVariableIsSet("VAXO_ISLAND_DEBUG"))
{
    connect(m_hover, &Timer::timeout, this, [this] {
        if (m_pointerInside && !m_state.expanded())
            m_state.setExpanded(true);
        else if (!m_pointerInside && m_state.expanded() && !m_state.pinnedByAlert())
            m_state.collapse();
    });
}

void PanelPointer::setFullscreen(bool active)
{
    if (active == m_fullscreen)
        return;
    m_fullscreen = active;
    setRevealed(!active);
}

void PanelPointer::sync(const QPointF &pointer)
{
    if (m_fullscreen && !m_revealed) {
        setClickThrough(true, pointer);
        setPointerInside(false);
        if (m_frames.revealZone.contains(pointer))
            setRevealed(true);
        return;
    }
    const bool inside = m_frames.hot.contains(pointer);
    if (m_fullscreen && PanelLayout::beyondReveal(pointer, m_frames.island)) {
        setRevealed(false);
        return;
    }
    setClickThrough(!inside, pointer);
    setPointerInside(inside);
}

void PanelPointer::pressed(const QPointF &pointer)
{
    if (m_state.expanded() && PanelLayout::pressCollapses(pointer, m_frames.island))
        m_state.collapse();
}

void PanelPointer::setClickThrough(bool through, const QPointF &pointer)
{
    if (through == m_clickThrough)
        return;
    m_clickThrough = through;
    emit clickThroughChanged();
    if (m_debug) {
        QString hot, mouse;
        QDebug(&hot).nospace() << m_frames.hot;
        QDebug(&mouse).nospace() << pointer;
        qInfo().noquote() << QStringLiteral("[island] clickThrough=%1 hot=%2 mouse=%3")
                                 .arg(through ? QStringLiteral("YES") : QStringLiteral("NO"), hot, mouse);
    }
}

void PanelPointer::setPointerInside(bool inside)
{
    if (inside == m_pointerInside)
        return;
    m_pointerInside = inside;
    m_state.setPointerInside(inside);
    // Restarting cancels the pending action, so a brief slip off and back changes nothing.
    m_hover->start(inside ? kEnterDelay : kLeaveDelay);
}

void PanelPointer::setRevealed(bool revealed)
{
    if (revealed == m_revealed)
        return;
    m_revealed = revealed;
    emit concealedChanged();
    if (!revealed) {
        setClickThrough(true, {});
        setPointerInside(false);
        m_state.collapse();
    }
}

} // namespace vaxo
