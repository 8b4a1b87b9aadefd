#include "base/IslandScheduler.h"

#include "base/AppActivity.h"
#include "base/Clock.h"
#include "base/Timer.h"
#include "platform/IdleTimeSource.h"

#include <QDebug>

#include <cmath>

namespace vaxo {
namespace {

// A timer may be dropped from inside its own tick (a job that unregisters itself), so it is stopped
// now and deleted once control is back in the event loop.
void dispose(Timer *timer)
{
    if (!timer)
        return;
    timer->stop();
    timer->disconnect();
    timer->deleteLater();
}

} // namespace

IslandScheduler::IslandScheduler(Clock &clock, AppActivity &activity, IdleTimeSource *idleTime, QObject *parent)
    : QObject(parent), m_clock(clock), m_activity(activity), m_idleTime(idleTime)
{
    if (m_idleTime)
        m_idleTime->setParent(this);
    connect(&activity, &AppActivity::displayUsableChanged, this, &IslandScheduler::reevaluateTier);
    connect(&activity, &AppActivity::lowPowerChanged, this, &IslandScheduler::reevaluateTier);
    connect(&activity, &AppActivity::displayReturned, this, &IslandScheduler::reevaluateTier);
}

void IslandScheduler::schedule(const Job &job)
{
    m_jobs.insert(job.name, job);
    arm(job.name);
    startTierWatchIfNeeded();
}

void IslandScheduler::reschedule(const QString &name, double active)
{
    auto it = m_jobs.find(name);
    if (it == m_jobs.end() || it->active == active)
        return;
    it->active = active;
    arm(name);
}

void IslandScheduler::unregister(const QString &name)
{
    dispose(m_timers.take(name));
    m_jobs.remove(name);
    if (m_jobs.isEmpty()) {
        dispose(m_tierWatch);
        m_tierWatch = nullptr;
    }
}

void IslandScheduler::startTierWatchIfNeeded()
{
    if (m_tierWatch)
        return;
    m_tierWatch = m_clock.createTimer(this);
    m_tierWatch->setRepeating(true);
    // Qt makes a coarse timer of 20 s or more a whole-second one: well inside the watch's 10 s leeway.
    m_tierWatch->setCoarse(true);
    connect(m_tierWatch, &Timer::timeout, this, &IslandScheduler::reevaluateTier);
    m_tierWatch->start(kWatchInterval);
    reevaluateTier();
}

double IslandScheduler::idleSeconds() const
{
    return m_idleTime ? m_idleTime->idleSeconds() : 0.0;
}

void IslandScheduler::reevaluateTier()
{
    Tier next = Tier::Active;
    if (!m_activity.displayUsable())
        next = Tier::Away;
    else if (idleSeconds() >= kIdleThreshold || m_activity.lowPower())
        next = Tier::Idle;

    const bool idle = idleSeconds() >= kIdleThreshold;
    if (idle != m_userIdle) {
        m_userIdle = idle;
        emit userIdleChanged();
    }
    if (next == m_tier)
        return;
    m_tier = next;
    emit tierChanged();
    if (m_activity.debug())
        qInfo().noquote() << QStringLiteral("[scheduler] tier=%1").arg(tierName(next));

    const QStringList names = m_jobs.keys();
    for (const QString &name : names)
        arm(name);
    if (next != Tier::Active)
        return;
    // Catch up on what was paused or slowed. A body may unregister jobs, so each is looked up again.
    for (const QString &name : names) {
        const auto it = m_jobs.constFind(name);
        if (it != m_jobs.constEnd() && it->body)
            std::function<void()>(it->body)();
    }
}

void IslandScheduler::arm(const QString &name)
{
    dispose(m_timers.take(name));
    const Job &job = m_jobs[name];
    const std::optional<double> interval = m_tier == Tier::Active ? std::optional<double>(job.active)
                                           : m_tier == Tier::Idle ? job.idle
                                                                  : job.away;
    if (!interval)
        return;
    if (!std::isfinite(*interval) || *interval < 0)
        qFatal("[scheduler] job %s has no usable interval", qPrintable(name));

    Timer *timer = m_clock.createTimer(this);
    timer->setRepeating(true);
    timer->setCoarse(true);
    // Looked up at each tick: a job replaced under the same name runs its new body.
    connect(timer, &Timer::timeout, this, [this, name] {
        const auto it = m_jobs.constFind(name);
        if (it != m_jobs.constEnd() && it->body)
            std::function<void()>(it->body)();
    });
    timer->start(*interval);
    m_timers.insert(name, timer);
}

} // namespace vaxo
