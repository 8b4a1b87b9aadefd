#pragma once

#include "base/Feeder.h"
#include "media/MediaCommand.h"
#include "media/MediaLog.h"
#include "media/NowPlaying.h"

#include <QObject>

#include <optional>

namespace vaxo {

struct AppPaths;
class Clock;
class IslandScheduler;
class IslandSettings;
class MediaPlayers;

// What the user is playing, published as now: polled through the scheduler's "island.media" job every
// 20 s, every 3 s while a track is known, every 40 s when the user is idle and never while away. The
// setting "vaxoIslandMusic" switches it on and off at once. Routes the music section's commands to the
// player that produced now. Main thread only; players answer later, and a poll's answer that a newer
// one overtook is dropped.
class IslandMedia : public QObject, public Feeder {
    Q_OBJECT
    Q_PROPERTY(bool running READ running NOTIFY runningChanged)
    Q_PROPERTY(bool accessibilityGranted READ accessibilityGranted NOTIFY accessibilityGrantedChanged)
    Q_PROPERTY(QString controlBlockedReason READ blockedText NOTIFY controlBlockedReasonChanged)
    Q_PROPERTY(bool canControlNowPlaying READ canControlNowPlaying NOTIFY canControlNowPlayingChanged)
public:
    using Command = MediaCommand;
    static const QString kJobName; // "island.media"
    static constexpr double kActiveInterval = 20;
    static constexpr double kTrackInterval = 3; // the active interval while a track is known
    static constexpr double kIdleInterval = 40;
    // Empty answers of the system source in a row after which it is given up.
    static constexpr int kSystemEmptyLimit = 4;
    static constexpr double kMediaKeyRefresh = 0.6;
    // A player may answer a command before its state has changed: one more look a moment later.
    static constexpr double kCommandSettle = 0.4;
    static constexpr double kGrantRecheck = 1.2;

    struct Switches {
        bool fakeTrack = false; // VAXO_FAKE_TRACK: show the demonstration track, ask no player
        static Switches fromEnvironment();
    };

    // The references must outlive the reader.
    IslandMedia(MediaPlayers &players, IslandScheduler &scheduler, IslandSettings &settings, const AppPaths &paths,
                Clock &clock, Switches switches, QObject *parent = nullptr);
    ~IslandMedia() override;

    const std::optional<NowPlaying> &now() const { return m_now; }
    bool running() const { return m_running; }
    bool systemSourceWorks() const { return m_systemWorks; }
    bool accessibilityGranted() const { return m_accessibilityGranted; }
    const std::optional<QString> &controlBlockedReason() const { return m_blockedReason; }
    QString blockedText() const { return m_blockedReason.value_or(QString()); }
    bool canControlNowPlaying() const;
    bool anyPlayerRunning() const;
    bool mediaKeysNeedPermission() const;
    const MediaLog &mediaLog() const { return m_log; }

    // Publishes the first reading and registers the job (once); with the fake-track switch, publishes
    // the demonstration track instead and registers nothing.
    void start() override;
    // Unregisters the job and forgets what plays; start() may begin again.
    void stop() override;
    // One poll: the system source while it works, else the players.
    void refresh();

    // The player that produced now takes the command directly; otherwise a media key is posted where
    // the process may post one, and the user is led to the permission where it may not.
    void send(Command command);
    // Mirrors the platform's accessibility trust; trust that arrives clears the blocked reason.
    void syncAccessibilityState();
    // Asks the platform for the trust (its own dialog), and opens its settings if still refused 1.2 s
    // later.
    void grantMediaKeyAccess();
    void log(const QString &message) const { m_log.append(message); }

    static NowPlaying demonstrationTrack(double now);

signals:
    void nowChanged();
    void runningChanged();
    void accessibilityGrantedChanged();
    void controlBlockedReasonChanged();
    void canControlNowPlayingChanged();

private:
    void followSetting();
    void scheduleJob();
    void onSystemReply(quint64 poll, const std::optional<NowPlaying> &record, bool works);
    void readPlayers(quint64 poll);
    // Publishes a poll's answer unless a newer poll has answered or reading stopped meanwhile.
    void settle(quint64 poll, const std::optional<NowPlaying> &record);
    void publish(const std::optional<NowPlaying> &record);
    void retune();
    void setBlockedReason(const std::optional<QString> &reason);
    void announceControl();
    void after(double seconds, std::function<void()> action);

    MediaPlayers &m_players;
    IslandScheduler &m_scheduler;
    IslandSettings &m_settings;
    Clock &m_clock;
    Switches m_switches;
    MediaLog m_log;
    std::optional<NowPlaying> m_now;
    bool m_running = false;
    bool m_systemWorks;
    int m_systemEmptyRuns = 0;
    bool m_accessibilityGranted;
    std::optional<QString> m_blockedReason;
    bool m_canControl = false;
    quint64 m_polls = 0;   // polls begun
    quint64 m_settled = 0; // the newest poll whose answer counts
};

} // namespace vaxo
