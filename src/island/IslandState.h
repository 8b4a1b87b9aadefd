#pragma once

#include "agents/AgentSession.h"
#include "base/Feeder.h"
#include "base/IslandBusyInputs.h"
#include "island/IslandMode.h"
#include "island/Mood.h"

#include <QHash>
#include <QList>
#include <QObject>

#include <memory>
#include <optional>

namespace vaxo {

class Clock;
class IslandSettings;
class SessionSource;
class SoundPlayer;

// What the island shows, and how it reacts to each new session list: it notices sessions that have
// just finished, opens and pins itself when a session starts waiting, and plays the alert and done
// sounds. As the island's first feeder it watches the sessions while the island is shown. Main
// thread only.
class IslandState : public QObject, public Feeder {
    Q_OBJECT
    Q_PROPERTY(bool expanded READ expanded WRITE setExpanded NOTIFY expandedChanged)
    Q_PROPERTY(QList<vaxo::AgentSession> agentSessions READ agentSessions NOTIFY agentSessionsChanged)
    Q_PROPERTY(QString justFinishedAgent READ justFinishedAgentText NOTIFY justFinishedAgentChanged)
    Q_PROPERTY(bool showSettings READ showSettings WRITE setShowSettings NOTIFY showSettingsChanged)
    Q_PROPERTY(bool pinnedByAlert READ pinnedByAlert NOTIFY pinnedByAlertChanged)
    Q_PROPERTY(bool pointerInside READ pointerInside WRITE setPointerInside NOTIFY pointerInsideChanged)
    Q_PROPERTY(vaxo::Mood mood READ mood NOTIFY moodChanged)
    Q_PROPERTY(vaxo::IslandMode::Kind modeKind READ modeKind NOTIFY modeChanged)
    Q_PROPERTY(int workingCount READ workingCount NOTIFY modeChanged)
    Q_PROPERTY(int waitingCount READ waitingCount NOTIFY modeChanged)
    Q_PROPERTY(QString agentsLabel READ agentsLabel NOTIFY agentsLabelChanged)
    Q_PROPERTY(bool userIdle READ userIdle WRITE setUserIdle NOTIFY userIdleChanged)

public:
    static constexpr double kJustFinishedSeconds = 5.0;

    IslandState(std::unique_ptr<SessionSource> source, Clock &clock, const IslandSettings &settings,
                SoundPlayer &sounds, QObject *parent = nullptr);
    ~IslandState() override;

    // Starts the session source with apply() as its callback.
    void startWatching();
    // Termination: no longer running, and the source delivers nothing more.
    void stopWatching();
    bool running() const { return m_running; }
    // As a feeder: start watching; stop collapses the island and stops watching.
    void start() override { startWatching(); }
    void stop() override;

    void apply(const QList<AgentSession> &sessions);
    Q_INVOKABLE void toggleExpanded();
    Q_INVOKABLE void collapse();
    void playDoneSound();

    bool expanded() const { return m_expanded; }
    void setExpanded(bool expanded);
    const QList<AgentSession> &agentSessions() const { return m_sessions; }
    const std::optional<QString> &justFinishedAgent() const { return m_justFinished; }
    QString justFinishedAgentText() const { return m_justFinished.value_or(QString()); }
    bool showSettings() const { return m_showSettings; }
    void setShowSettings(bool show);
    bool pinnedByAlert() const { return m_pinnedByAlert; }
    bool pointerInside() const { return m_pointerInside; }
    void setPointerInside(bool inside);
    // The user's input idleness, fed by the scheduler; it decides between sleeping and resting.
    bool userIdle() const { return m_userIdle; }
    void setUserIdle(bool idle);

    // What the animation gate needs to know of the island.
    IslandBusyInputs busyInputs() const;

    QList<AgentSession> waitingSessions() const;
    // How long the longest-waiting session has waited, in seconds; 0 when unknown.
    double waitingSeconds() const;
    IslandMode mode() const { return m_mode; }
    IslandMode::Kind modeKind() const { return m_mode.kind; }
    // The agents mode's counts; 0 in the other modes.
    int workingCount() const { return m_mode.working; }
    int waitingCount() const { return m_mode.waiting; }
    QString agentsLabel() const { return m_agentsLabel; }
    Mood mood() const { return m_mood; }

    static QString agentsLabelFor(int working, int waiting);

signals:
    void expandedChanged();
    void agentSessionsChanged();
    void justFinishedAgentChanged();
    void showSettingsChanged();
    void pinnedByAlertChanged();
    void pointerInsideChanged();
    void moodChanged();
    void modeChanged();
    void agentsLabelChanged();
    void userIdleChanged();

private:
    void setJustFinished(std::optional<QString> label);
    void setPinnedByAlert(bool pinned);
    void clearJustFinishedLater();
    // Recomputes mood, mode and label from the fields, notifying only what changed.
    void publishDerived();

    std::unique_ptr<SessionSource> m_source;
    Clock &m_clock;
    const IslandSettings &m_settings;
    SoundPlayer &m_sounds;

    bool m_expanded = false;
    QList<AgentSession> m_sessions;
    std::optional<QString> m_justFinished;
    bool m_showSettings = false;
    bool m_pinnedByAlert = false;
    bool m_pointerInside = false;
    bool m_userIdle = false;
    bool m_running = false;
    bool m_applying = false;
    QHash<QString, QString> m_prevStatuses;

    Mood m_mood = Mood::Resting;
    IslandMode m_mode;
    QString m_agentsLabel;
};

} // namespace vaxo
