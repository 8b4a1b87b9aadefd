#pragma once

#include "platform/ActivityPlatform.h"

#include <QDBusConnection>

#include <optional>

namespace vaxo::linux_platform {

// The desktop behind the animation gate and the scheduler on Linux: X screen-saver idle time, logind
// and the screen saver for sleep and locks, power-profiles-daemon for low power, Qt's own windows.
class LinuxActivityPlatform final : public ActivityPlatform {
public:
    // The user's system and session buses, connected when the first source is made (so after the
    // application object exists).
    LinuxActivityPlatform() = default;
    LinuxActivityPlatform(const QDBusConnection &system, const QDBusConnection &session);

    IdleTimeSource *createIdleTimeSource(QObject *parent) override;
    DisplayStateSource *createDisplayStateSource(QObject *parent) override;
    LowPowerSource *createLowPowerSource(QObject *parent) override;
    WindowVisibilitySource *createWindowVisibilitySource(QObject *parent) override;

private:
    QDBusConnection systemBus() const { return m_system ? *m_system : QDBusConnection::systemBus(); }
    QDBusConnection sessionBus() const { return m_session ? *m_session : QDBusConnection::sessionBus(); }

    std::optional<QDBusConnection> m_system;
    std::optional<QDBusConnection> m_session;
};

} // namespace vaxo::linux_platform
