#pragma once

#include "platform/ActivityPlatform.h"

#include <QDBusConnection>

#include <functional>
#include <optional>

namespace vaxo::linux_platform {

// The desktop behind the animation gate and the scheduler on Linux: logind and the screen saver for
// sleep and locks, power-profiles-daemon for low power, Qt's own windows, and the idle time from
// whatever the display server offers.
class LinuxActivityPlatform final : public ActivityPlatform {
public:
    // Makes the display server's idle-time source, or nullptr when it has none.
    using IdleTimeFactory = std::function<IdleTimeSource *(QObject *parent)>;

    // The user's system and session buses, connected when the first source is made (so after the
    // application object exists).
    explicit LinuxActivityPlatform(IdleTimeFactory idleTime);
    LinuxActivityPlatform(IdleTimeFactory idleTime, const QDBusConnection &system, const QDBusConnection &session);

    IdleTimeSource *createIdleTimeSource(QObject *parent) override;
    DisplayStateSource *createDisplayStateSource(QObject *parent) override;
    LowPowerSource *createLowPowerSource(QObject *parent) override;
    WindowVisibilitySource *createWindowVisibilitySource(QObject *parent) override;

private:
    QDBusConnection systemBus() const { return m_system ? *m_system : QDBusConnection::systemBus(); }
    QDBusConnection sessionBus() const { return m_session ? *m_session : QDBusConnection::sessionBus(); }

    IdleTimeFactory m_idleTime;
    std::optional<QDBusConnection> m_system;
    std::optional<QDBusConnection> m_session;
};

} // namespace vaxo::linux_platform
