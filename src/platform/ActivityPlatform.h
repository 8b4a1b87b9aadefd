#pragma once

#include <memory>

class QObject;

namespace vaxo {

class DisplayStateSource;
class IdleTimeSource;
class LowPowerSource;
class WindowVisibilitySource;

// The platform services behind the shared animation gate and scheduler. The program installs its
// platform once, first thing in main; AppActivity::shared() and IslandScheduler::shared() build
// their sources from it on first use. Without an installed platform they get no sources: the
// display stays usable, power is never low and the user never looks idle.
class ActivityPlatform {
public:
    virtual ~ActivityPlatform() = default;

    // Each returns a new source owned by parent, or nullptr when the platform has none.
    virtual IdleTimeSource *createIdleTimeSource(QObject *parent) = 0;
    virtual DisplayStateSource *createDisplayStateSource(QObject *parent) = 0;
    virtual LowPowerSource *createLowPowerSource(QObject *parent) = 0;
    virtual WindowVisibilitySource *createWindowVisibilitySource(QObject *parent) = 0;

    // Takes effect for shared objects not yet created; later calls replace the platform.
    static void install(std::unique_ptr<ActivityPlatform> platform);
    // The installed platform, or nullptr.
    static ActivityPlatform *installed();
};

} // namespace vaxo
