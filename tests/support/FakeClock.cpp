#include "FakeClock.h"

#include <limits>

namespace vaxo::test {

class FakeClock::FakeTimer final : public Timer {
public:
    FakeTimer(FakeClock &clock, QObject *parent) : Timer(parent), m_clock(clock) {}

    void start(double seconds) override
    {
        m_interval = seconds;
        m_due = m_clock.now() + seconds;
        m_active = true;
    }
    void stop() override { m_active = false; }
    bool isActive() const override { return m_active; }
    double interval() const override { return m_interval; }

    double due() const { return m_due; }
    void fire()
    {
        if (isRepeating())
            m_due += std::max(m_interval, 1e-6);
        else
            m_active = false;
        emit timeout();
    }

private:
    FakeClock &m_clock;
    double m_interval = 0;
    double m_due = 0;
    bool m_active = false;
};

Timer *FakeClock::createTimer(QObject *parent)
{
    auto *timer = new FakeTimer(*this, parent);
    m_timers.append(timer);
    return timer;
}

void FakeClock::advance(double seconds)
{
    const double end = m_now + seconds;
    for (;;) {
        m_timers.removeIf([](const QPointer<FakeTimer> &t) { return t.isNull(); });
        FakeTimer *next = nullptr;
        double due = std::numeric_limits<double>::infinity();
        for (const auto &t : m_timers) {
            if (t->isActive() && t->due() <= end && t->due() < due) {
                next = t;
                due = t->due();
            }
        }
        if (!next)
            break;
        m_now = std::max(m_now, due);
        ++m_firings;
        next->fire();
    }
    m_now = end;
}

int FakeClock::activeTimers() const
{
    int n = 0;
    for (const auto &t : m_timers)
        n += (t && t->isActive()) ? 1 : 0;
    return n;
}

} // namespace vaxo::test
