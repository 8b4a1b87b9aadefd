#pragma once

#include <QObject>

namespace vaxo {

// The system's low-power (power-saving) mode.
class LowPowerSource : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // False when the platform has no such mode or it cannot be read.
    virtual bool isLowPower() = 0;

signals:
    // The power state may have changed: read isLowPower() again. May fire without a change.
    void powerStateChanged();
};

} // namespace vaxo
