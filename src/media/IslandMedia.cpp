#include "media/IslandMedia.h"

#include "base/AppPaths.h"
#include "base/Clock.h"
#include "base/IslandScheduler.h"
#include "base/IslandSettings.h"
#include "platform/MediaPlayers.h"

#include <QPointer>

namespace vaxo {

const QString IslandMedia::kJobName = QStringLiteral("island.media");

IslandMedia::Switches IslandMedia::Switches::fromEnvironment()
{
    static const bool fakeTrack = qEnvironmentVariableIsSet("VAXO_FAKE_TRACK");
    return {fakeTrack};
}

IslandMedia::IslandMedia(MediaPlayers &players, IslandScheduler &scheduler, IslandSettings &settings,
                         const AppPaths &paths, Clock &clock, Switches switches, QObject *parent)
    : QObject(parent), m_players(players), m_scheduler(scheduler), m_settings(settings), m_clock(clock),
      m_switches(switches), m_log(paths.logs(), clock), m_systemWorks(players.hasSystemSource()),
      m_accessibilityGranted(players.accessibilityTrusted(false))
{
    m_canControl = canControlNowPlaying();
    connect(&m_settings, &IslandSettings::musicChanged, this, &IslandMedia::followSetting);
    connect(&m_players, &MediaPlayers::note, this, &IslandMedia::log);
    // A player that quits takes its record with it at once, without waiting for the next poll.
    connect(&m_players, &MediaPlayers::playerGone, this, [this](const QString &player) {
        if (m_now && !player.isEmpty() && m_now->player == player) {
            publish(std::nullopt);
            retune();
        }
    });
}

IslandMedia::~IslandMedia()
{
    if (m_running)
        m_scheduler.unregister(kJobName);
}

NowPlaying IslandMedia::demonstrationTrack(double now)
{
    NowPlaying track;
    track.title = QStringLiteral("Midnight Compile");
    track.artist = QStringLiteral("The Linkers");
    track.isPlaying = true;
    track.source = QStringLiteral("Music");
    track.elapsed = 11;
    track.duration = 146;
    track.capturedAt = now;
    return track;
}

void IslandMedia::scheduleJob()
{
    QPointer<IslandMedia> self(this);
    m_scheduler.schedule({kJobName, kActiveInterval, kIdleInterval, std::nullopt, [self] {
                              if (self)
                                  self->refresh();
                          }});
}

void IslandMedia::start()
{
    if (m_running)
        return;
    m_running = true;
    emit runningChanged();
    if (m_switches.fakeTrack) {
        publish(demonstrationTrack(m_clock.now()));
        return;
    }
    log(QStringLiteral("start() called, enabled=%1").arg(m_settings.music() ? "true" : "false"));
    refresh();
    // Switched off, there is nothing to poll for; switching it on registers the job.
    if (m_settings.music())
        scheduleJob();
}

void IslandMedia::stop()
{
    if (!m_running)
        return;
    m_running = false;
    m_scheduler.unregister(kJobName);
    m_settled = m_polls;
    publish(std::nullopt);
    emit runningChanged();
}

void IslandMedia::followSetting()
{
    if (!m_running)
        return;
    if (!m_settings.music()) {
        m_scheduler.unregister(kJobName);
        m_settled = m_polls;
        publish(std::nullopt);
    } else if (m_switches.fakeTrack) {
        publish(demonstrationTrack(m_clock.now()));
    } else {
        refresh();
        scheduleJob();
    }
}

void IslandMedia::refresh()
{
    syncAccessibilityState();
    if (!m_settings.music()) {
        publish(std::nullopt);
        return;
    }
    const quint64 poll = ++m_polls;
    if (!m_players.anyPlayerRunning()) {
        settle(poll, std::nullopt);
        return;
    }
    if (!m_systemWorks) {
        readPlayers(poll);
        return;
    }
    QPointer<IslandMedia> self(this);
    m_players.readSystem([self, poll](const MediaPlayers::SystemReply &reply) {
        if (self)
            self->onSystemReply(poll, reply.record, reply.works);
    });
}

void IslandMedia::onSystemReply(quint64 poll, const std::optional<NowPlaying> &record, bool works)
{
    if (record) {
        m_systemEmptyRuns = 0;
        settle(poll, record);
        return;
    }
    if (!works || ++m_systemEmptyRuns > kSystemEmptyLimit)
        m_systemWorks = false;
    readPlayers(poll);
}

void IslandMedia::readPlayers(quint64 poll)
{
    QPointer<IslandMedia> self(this);
    m_players.readPlayers([self, poll](const std::optional<NowPlaying> &record) {
        if (self)
            self->settle(poll, record);
    });
}

void IslandMedia::settle(quint64 poll, const std::optional<NowPlaying> &record)
{
    if (poll <= m_settled || !m_settings.music())
        return;
    m_settled = poll;
    publish(record);
    retune();
}

void IslandMedia::publish(const std::optional<NowPlaying> &record)
{
    if (record == m_now)
        return;
    m_now = record;
    emit nowChanged();
    announceControl();
}

void IslandMedia::retune()
{
    m_scheduler.reschedule(kJobName, m_now ? kTrackInterval : kActiveInterval);
}

bool IslandMedia::anyPlayerRunning() const
{
    return m_players.anyPlayerRunning();
}

} // namespace vaxo
