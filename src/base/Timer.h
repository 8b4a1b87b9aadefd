#pragma once

#include <QObject>

namespace vaxo {

// A timer handed out by a Clock. Single-shot unless made repeating. Intervals are in seconds so that
// the scheduler's tiers read as they are stated.
class Timer : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // (Re)starts the countdown from now; a running timer is restarted.
    virtual void start(double seconds) = 0;
    virtual void stop() = 0;
    virtual bool isActive() const = 0;
    virtual double interval() const = 0;

    void setRepeating(bool repeating) { m_repeating = repeating; }
    bool isRepeating() const { return m_repeating; }

    // A coarse timer may fire a little late so that the system can fold wake-ups together.
    void setCoarse(bool coarse) { m_coarse = coarse; }
    bool isCoarse() const { return m_coarse; }

signals:
    void timeout();

private:
    bool m_repeating = false;
    bool m_coarse = false;
};

} // namespace vaxo
