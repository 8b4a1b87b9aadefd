#pragma once

class QObject;

namespace vaxo {

class Timer;

// Wall time and timers. Everything that waits or reads the time takes a Clock, so that tests can
// drive time by hand instead of sleeping.
class Clock {
public:
    virtual ~Clock() = default;

    // Seconds since 1970-01-01 UTC, with fractions.
    virtual double now() const = 0;

    // A stopped timer that lives as long as parent.
    virtual Timer *createTimer(QObject *parent) = 0;

    // The real clock: QTimer on the calling thread's event loop.
    static Clock &system();
};

} // namespace vaxo
