#include "base/Clock.h"

#include "base/Timer.h"

#include <QDateTime>
#include <QTimer>

#include <cmath>

namespace vaxo {
namespace {

class QtTimer final : public Timer {
public:
    explicit QtTimer(QObject *parent) : Timer(parent) { connect(&m_timer, &QTimer::timeout, this, &Timer::timeout); }

    void start(double seconds) override
    {
        m_interval = seconds;
        m_timer.setSingleShot(!isRepeating());
        m_timer.setTimerType(isCoarse() ? Qt::CoarseTimer : Qt::PreciseTimer);
        m_timer.start(std::max(0, int(std::lround(seconds * 1000.0))));
    }
    void stop() override { m_timer.stop(); }
    bool isActive() const override { return m_timer.isActive(); }
    double interval() const override { return m_interval; }

private:
    QTimer m_timer;
    double m_interval = 0;
};

class SystemClock final : public Clock {
public:
    double now() const override { return double(QDateTime::currentMSecsSinceEpoch()) / 1000.0; }
    Timer *createTimer(QObject *parent) override { return new QtTimer(parent); }
};

} // namespace

Clock &Clock::system()
{
    static SystemClock clock;
    return clock;
}

} // namespace vaxo
