#include "platform/linux/LinuxActivityPlatform.h"

#include "platform/linux/LinuxDisplayState.h"
#include "platform/linux/PowerProfilesLowPower.h"
#include "platform/linux/QtWindowVisibility.h"
#include "platform/linux/XScreenSaverIdleTime.h"

namespace vaxo::linux_platform {

LinuxActivityPlatform::LinuxActivityPlatform(const QDBusConnection &system, const QDBusConnection &session)
    : m_system(system), m_session(session)
{
}

IdleTimeSource *LinuxActivityPlatform::createIdleTimeSource(QObject *parent)
{
    return new XScreenSaverIdleTime(parent);
}

DisplayStateSource *LinuxActivityPlatform::createDisplayStateSource(QObject *parent)
{
    return new LinuxDisplayState(systemBus(), sessionBus(), parent);
}

LowPowerSource *LinuxActivityPlatform::createLowPowerSource(QObject *parent)
{
    return new PowerProfilesLowPower(systemBus(), parent);
}

WindowVisibilitySource *LinuxActivityPlatform::createWindowVisibilitySource(QObject *parent)
{
    return new QtWindowVisibility(parent);
}

} // namespace vaxo::linux_platform
