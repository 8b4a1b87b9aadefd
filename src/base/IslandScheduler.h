#pragma once

#include "base/Job.h"
#include "base/Tier.h"

#include <QMap>
#include <QObject>
#include <QPointer>

namespace vaxo {

class AppActivity;
class Clock;
class IdleTimeSource;
class Timer;

// Runs every periodic job of the program at the interval its tier asks for. The tier follows the
// user's idle time, whether the display can be seen and low-power mode; a 30-second watch re-reads
// it while any job is scheduled. Timers are coarse so that the system can fold wake-ups together.
// Main thread only.
class IslandScheduler : public QObject {
    Q_OBJECT
    Q_PROPERTY(vaxo::Tier tier READ tier NOTIFY tierChanged)
    Q_PROPERTY(bool userIdle READ userIdle NOTIFY userIdleChanged)
public:
    // No input for this long makes the user idle.
    static constexpr double kIdleThreshold = 120;
    static constexpr double kWatchInterval = 30;

    // idleTime may be null (the user then never looks idle); the scheduler takes ownership.
    IslandScheduler(Clock &clock, AppActivity &activity, IdleTimeSource *idleTime, QObject *parent = nullptr);

    Tier tier() const { return m_tier; }
    bool userIdle() const { return m_userIdle; }
    bool hasJob(const QString &name) const { return m_jobs.contains(name); }

    // Stores the job (replacing one of the same name), arms it, then starts the watch if needed.
    void schedule(const Job &job);
    // A new active-tier interval for a stored job; unknown names and unchanged intervals do nothing.
    void reschedule(const QString &name, double active);
    // Forgets the job and its timer; the last one gone stops the watch.
    void unregister(const QString &name);

    void startTierWatchIfNeeded();

public slots:
    // Reads the tier and userIdle again now; on a change re-arms every job, and on a return to
    // active runs each job once at once.
    void reevaluateTier();

signals:
    void tierChanged();
    void userIdleChanged();

private:
    void arm(const QString &name);
    double idleSeconds() const;

    Clock &m_clock;
    AppActivity &m_activity;
    QPointer<IdleTimeSource> m_idleTime;
    Tier m_tier = Tier::Active;
    bool m_userIdle = false;
    QMap<QString, Job> m_jobs;
    QMap<QString, Timer *> m_timers;
    Timer *m_tierWatch = nullptr;
};

} // namespace vaxo
