#include "island/SessionsSection.h"

#include "agents/AskDecision.h"
#include "agents/StatusLine.h"
#include "base/Clock.h"
#include "base/Timer.h"
#include "island/CardText.h"
#include "island/IslandState.h"

#include <algorithm>

namespace vaxo {

SessionsSection::SessionsSection(const IslandState &state, const AskDecision &decisions, Clock &clock, QObject *parent)
    : QObject(parent), m_state(state), m_decisions(decisions), m_clock(clock), m_rows(new SessionListModel(this)),
      m_ticker(clock.createTimer(this))
{
    m_ticker->setRepeating(true);
    m_ticker->setCoarse(true);
    connect(m_ticker, &Timer::timeout, this, &SessionsSection::refresh);
    for (auto signal :
         {&IslandState::agentSessionsChanged, &IslandState::justFinishedAgentChanged, &IslandState::userIdleChanged})
        connect(&state, signal, this, &SessionsSection::refresh);
    refresh();
}

void SessionsSection::setShown(bool shown)
{
    if (shown == m_shown)
        return;
    m_shown = shown;
    if (shown) {
        refresh(); // the minutes went on while nobody looked
        m_ticker->start(kRefreshInterval);
    } else {
        m_ticker->stop();
    }
    emit shownChanged();
}

void SessionsSection::refresh()
{
    const QList<AgentSession> &sessions = m_state.agentSessions();
    const double now = m_clock.now();
    m_rows->sync(sessions, now, kListedRows);

    View view;
    QStringList waitingLabels, workingLabels;
    for (const AgentSession &s : sessions) {
        if (s.isWaiting())
            waitingLabels << s.label;
        else if (s.isWorking())
            workingLabels << s.label;
    }
    view.headline = StatusLine::compose(waitingLabels, workingLabels, m_state.justFinishedAgent(), m_state.userIdle());
    view.empty = sessions.isEmpty();
    view.moreRunning = CardText::moreRunning(int(sessions.size()) - kListedRows);
    const QList<AgentSession> waiting = m_state.waitingSessions();
    if (!waiting.isEmpty()) {
        const AgentSession &first = waiting.first();
        view.waitingId = first.id;
        view.waitingLabel = first.label;
        view.waitingBrandIcon = SessionRow::brandIconUrl(first.agent);
        view.waitingFor = first.waitingFor.value_or(QString());
        view.answerable = first.isAnswerable();
        view.askId = first.askId.value_or(QString());
        view.askTool = first.askTool.value_or(QString());
        view.askTarget = first.askTarget.value_or(QString());
        if (first.offersAlways())
            view.alwaysLabel = CardText::alwaysAllow(*first.askSuggestions);
        view.moreWaiting = CardText::moreWaiting(int(waiting.size()) - 1);
        view.waited = CardText::waitedText(m_state.waitingSeconds());
    }
    if (view == m_view)
        return;
    m_view = view;
    emit changed();
}

void SessionsSection::answer(const QString &askId, bool allow)
{
    if (asks(askId, &AgentSession::isAnswerable))
        m_decisions.answer(askId, allow ? AskDecision::Answer::Allow : AskDecision::Answer::Deny);
}

void SessionsSection::answerAlways(const QString &askId)
{
    if (asks(askId, &AgentSession::offersAlways))
        m_decisions.answer(askId, AskDecision::Answer::Always);
}

bool SessionsSection::asks(const QString &askId, bool (AgentSession::*answerable)() const) const
{
    const QList<AgentSession> &sessions = m_state.agentSessions();
    return std::any_of(sessions.begin(), sessions.end(),
                       [&](const AgentSession &s) { return (s.*answerable)() && s.askId == askId; });
}

QString SessionsSection::needsPermission() const
{
    return CardText::needsPermission();
}

QString SessionsSection::waitingApproval() const
{
    return CardText::waitingApproval();
}

QString SessionsSection::emptyText() const
{
    return CardText::emptyState();
}

} // namespace vaxo
