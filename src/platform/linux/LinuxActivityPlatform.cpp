#include "platform/linux/LinuxActivityPlatform.h"

#include "platform/linux/LinuxDisplayState.h"
#include "platform/linux/PowerProfilesLowPower.h"
#include "platform/linux/QtWindowVisibility.h"

namespace vaxo::linux_platform {

LinuxActivityPlatform::LinuxActivityPlatform(IdleTimeFactory idleTime) : m_idleTime(std::move(idleTime)) {}

LinuxActivityPlatform::LinuxActivityPlatform(IdleTimeFactory idleTime, const QDBusConnection &system,
                                             const QDBusConnection &session)
    : m_idleTime(std::move(idleTime)), m_system(system), m_session(session)
{
}

IdleTimeSource *LinuxActivityPlatform::createIdleTimeSource(QObject *parent)
{
    return m_idleTime ? m_idleTime(parent) : nullptr;
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
