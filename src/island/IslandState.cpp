#include "island/IslandState.h"

#include "agents/SessionSource.h"
#include "base/Clock.h"
#include "base/IslandSettings.h"
#include "base/Timer.h"
#include "platform/SoundPlayer.h"

#include <algorithm>

namespace vaxo {

IslandState::IslandState(std::unique_ptr<SessionSource> source, Clock &clock, const IslandSettings &settings,
                         SoundPlayer &sounds, QObject *parent)
    : QObject(parent), m_source(std::move(source)), m_clock(clock), m_settings(settings), m_sounds(sounds)
{
    publishDerived();
}

IslandState::~IslandState() = default;

void IslandState::startWatching()
{
    m_running = true;
    m_source->start([this](const QList<AgentSession> &sessions) { apply(sessions); });
}

void IslandState::stopWatching()
{
    m_running = false;
    m_source->stop();
}

void IslandState::stop()
{
    collapse();
    stopWatching();
}

void IslandState::apply(const QList<AgentSession> &sessions)
{
    // Derived values are published once, at the end, so that observers never see a half-applied list.
    m_applying = true;
    for (const AgentSession &s : sessions) {
        if (s.status == QLatin1String("done") && m_prevStatuses.value(s.id) == QLatin1String("working")) {
            setJustFinished(s.label);
            playDoneSound();
            clearJustFinishedLater();
        }
    }
    for (const AgentSession &s : sessions) {
        if (s.isWaiting() && m_prevStatuses.value(s.id) != QLatin1String("waiting")) {
            setPinnedByAlert(true);
            setShowSettings(false);
            setExpanded(true);
            if (m_settings.sound())
                m_sounds.play(QStringLiteral("Submarine"));
        }
    }
    m_prevStatuses.clear();
    for (const AgentSession &s : sessions)
        m_prevStatuses.insert(s.id, s.status);

    if (sessions != m_sessions) {
        m_sessions = sessions;
        emit agentSessionsChanged();
    }
    if (m_pinnedByAlert &&
        std::none_of(sessions.begin(), sessions.end(), [](const auto &s) { return s.isWaiting(); })) {
        setPinnedByAlert(false);
        collapse();
    }
    m_applying = false;
    publishDerived();
}

void IslandState::clearJustFinishedLater()
{
    // Each finish clears after its own delay, even when a later finish replaced the label.
    Timer *timer = m_clock.createTimer(this);
    connect(timer, &Timer::timeout, this, [this, timer] {
        setJustFinished(std::nullopt);
        timer->deleteLater();
    });
    timer->start(kJustFinishedSeconds);
}

void IslandState::toggleExpanded()
{
    setExpanded(!m_expanded);
}

void IslandState::collapse()
{
    setExpanded(false);
    setShowSettings(false);
}

void IslandState::playDoneSound()
{
    if (m_settings.sound())
        m_sounds.play(m_settings.soundName());
}

void IslandState::setExpanded(bool expanded)
{
    if (m_expanded == expanded)
        return;
    m_expanded = expanded;
    emit expandedChanged();
}

void IslandState::setShowSettings(bool show)
{
    if (m_showSettings == show)
        return;
    m_showSettings = show;
    emit showSettingsChanged();
}

void IslandState::setPointerInside(bool inside)
{
    if (m_pointerInside == inside)
        return;
    m_pointerInside = inside;
    emit pointerInsideChanged();
}

void IslandState::setUserIdle(bool idle)
{
    if (m_userIdle == idle)
        return;
    m_userIdle = idle;
    emit userIdleChanged();
    publishDerived();
}

void IslandState::setJustFinished(std::optional<QString> label)
{
    if (m_justFinished == label)
        return;
    m_justFinished = std::move(label);
    emit justFinishedAgentChanged();
    if (!m_applying)
        publishDerived();
}

void IslandState::setPinnedByAlert(bool pinned)
{
    if (m_pinnedByAlert == pinned)
        return;
    m_pinnedByAlert = pinned;
    emit pinnedByAlertChanged();
}

IslandBusyInputs IslandState::busyInputs() const
{
    const auto active = std::count_if(m_sessions.begin(), m_sessions.end(),
                                      [](const AgentSession &s) { return s.isWorking() || s.isWaiting(); });
    return {m_expanded, m_pointerInside, m_pinnedByAlert, m_showSettings, m_justFinished.has_value(), int(active)};
}

QList<AgentSession> IslandState::waitingSessions() const
{
    QList<AgentSession> waiting;
    std::copy_if(m_sessions.begin(), m_sessions.end(), std::back_inserter(waiting),
                 [](const AgentSession &s) { return s.isWaiting(); });
    return waiting;
}

double IslandState::waitingSeconds() const
{
    std::optional<double> oldest;
    for (const AgentSession &s : m_sessions)
        if (s.isWaiting() && s.updated)
            oldest = std::min(oldest.value_or(*s.updated), *s.updated);
    return oldest ? std::max(0.0, m_clock.now() - *oldest) : 0.0;
}

QString IslandState::agentsLabelFor(int working, int waiting)
{
    if (waiting >= 1)
        return waiting == 1 ? QStringLiteral("1 session needs you")
                            : QStringLiteral("%1 sessions need you").arg(waiting);
    return working == 1 ? QStringLiteral("1 session working") : QStringLiteral("%1 sessions working").arg(working);
}

void IslandState::publishDerived()
{
    const int waiting =
        int(std::count_if(m_sessions.begin(), m_sessions.end(), [](const auto &s) { return s.isWaiting(); }));
    const int working =
        int(std::count_if(m_sessions.begin(), m_sessions.end(), [](const auto &s) { return s.isWorking(); }));

    IslandMode mode;
    if (m_justFinished)
        mode = {IslandMode::Kind::Finished, *m_justFinished, 0, 0};
    else if (working + waiting >= 1)
        mode = {IslandMode::Kind::Agents, {}, working, waiting};
    const Mood mood = moodFor(waiting, working, m_justFinished.has_value(), m_userIdle);
    const QString label = agentsLabelFor(working, waiting);

    if (mode != m_mode) {
        m_mode = mode;
        emit modeChanged();
    }
    if (mood != m_mood) {
        m_mood = mood;
        emit moodChanged();
    }
    if (label != m_agentsLabel) {
        m_agentsLabel = label;
        emit agentsLabelChanged();
    }
}

} // namespace vaxo
