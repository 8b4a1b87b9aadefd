#pragma once

class QObject;

namespace vaxo {

class DisplayStateSource;
class IdleTimeSource;
class LowPowerSource;
class WindowVisibilitySource;

// Makes the platform's sources behind the animation gate and the scheduler. The composition root asks
// for them once; a gate or scheduler without them sees a display that stays usable, power that is
// never low and a user who never looks idle.
class ActivityPlatform {
public:
    virtual ~ActivityPlatform() = default;

    // Each returns a new source owned by parent, or nullptr when the platform has none.
    virtual IdleTimeSource *createIdleTimeSource(QObject *parent) = 0;
    virtual DisplayStateSource *createDisplayStateSource(QObject *parent) = 0;
    virtual LowPowerSource *createLowPowerSource(QObject *parent) = 0;
    virtual WindowVisibilitySource *createWindowVisibilitySource(QObject *parent) = 0;
};

} // namespace vaxo
