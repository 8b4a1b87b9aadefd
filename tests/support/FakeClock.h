#pragma once

#include "base/Clock.h"
#include "base/Timer.h"

#include <QList>
#include <QPointer>

namespace vaxo::test {

// A clock that moves only when the test says so. advance() fires every timer that falls due, in
// order of due time, with now() set to each timer's due time while it fires.
class FakeClock final : public Clock {
public:
    explicit FakeClock(double start = 1'700'000'000.0) : m_now(start) {}

    double now() const override { return m_now; }
    Timer *createTimer(QObject *parent) override;

    void set(double now) { m_now = now; }
    void advance(double seconds);

    // Timers that are running now (for "no timer exists" checks).
    int activeTimers() const;
    // How many times any timer of this clock has fired.
    int firings() const { return m_firings; }

private:
    class FakeTimer;
    double m_now;
    int m_firings = 0;
    QList<QPointer<FakeTimer>> m_timers;
};

} // namespace vaxo::test
