#include "island/summon/SummonView.h"

#include "agents/StatusLine.h"
#include "island/IslandState.h"

#include <algorithm>

namespace vaxo {

SummonView::SummonView(const IslandState &state, QObject *parent) : QObject(parent), m_state(state)
{
    for (auto signal :
         {&IslandState::agentSessionsChanged, &IslandState::justFinishedAgentChanged, &IslandState::userIdleChanged})
        connect(&m_state, signal, this, &SummonView::update);
    update();
}

void SummonView::update()
{
    const QList<AgentSession> &sessions = m_state.agentSessions();
    const Mood mood = moodOf(sessions, m_state.justFinishedAgent().has_value(), m_state.userIdle());
    const QString line = lineOf(sessions, m_state.justFinishedAgent(), m_state.userIdle());
    if (mood != m_mood) {
        m_mood = mood;
        emit moodChanged();
    }
    if (line != m_line) {
        m_line = line;
        emit lineChanged();
    }
}

Mood SummonView::moodOf(const QList<AgentSession> &sessions, bool justFinished, bool userIdle)
{
    const auto count = [&sessions](bool (AgentSession::*is)() const) {
        return int(std::count_if(sessions.begin(), sessions.end(), [is](const AgentSession &s) { return (s.*is)(); }));
    };
    return moodFor(count(&AgentSession::isWaiting), count(&AgentSession::isWorking), justFinished, userIdle);
}

QString SummonView::lineOf(const QList<AgentSession> &sessions, const std::optional<QString> &justFinished,
                           bool userIdle)
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

} // namespace vaxo
