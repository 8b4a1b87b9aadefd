#include "island/summon/SummonView.h"

#include "agents/StatusLine.h"
#include "island/IslandState.h"

namespace vaxo {
namespace {

// The status sentence over the labels of the waiting and the working sessions.
QString lineOf(const QList<AgentSession> &sessions, const std::optional<QString> &justFinished, bool userIdle)
{
    QStringList waiting;
    QStringList working;
    for (const AgentSession &session : sessions) {
        if (session.isWaiting())
            waiting << session.label;
        else if (session.isWorking())
            working << session.label;
    }
    return StatusLine::compose(waiting, working, justFinished, userIdle);
}

} // namespace

SummonView::SummonView(const IslandState &state, QObject *parent) : QObject(parent), m_state(state)
{
    for (auto signal :
         {&IslandState::agentSessionsChanged, &IslandState::justFinishedAgentChanged, &IslandState::userIdleChanged})
        connect(&m_state, signal, this, &SummonView::update);
    update();
}

void SummonView::update()
{
    const QString line = lineOf(m_state.agentSessions(), m_state.justFinishedAgent(), m_state.userIdle());
    if (line == m_line)
        return;
    m_line = line;
    emit lineChanged();
}

} // namespace vaxo
