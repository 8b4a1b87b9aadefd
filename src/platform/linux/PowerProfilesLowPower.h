#pragma once

#include "platform/LowPowerSource.h"

#include <QDBusConnection>
#include <QVariantMap>

namespace vaxo::linux_platform {

// Low-power mode from power-profiles-daemon: the "power-saver" profile, under the daemon's current
// name (org.freedesktop.UPower.PowerProfiles) or its older one (net.hadess.PowerProfiles). Read once
// at creation, then followed through PropertiesChanged. Without the daemon power is never low.
class PowerProfilesLowPower final : public LowPowerSource {
    Q_OBJECT
public:
    explicit PowerProfilesLowPower(const QDBusConnection &system, QObject *parent = nullptr);

    bool isLowPower() override { return m_low; }

private slots:
    void onProperties(const QString &interface, const QVariantMap &changed, const QStringList &invalidated);

private:
    bool m_low = false;
};

} // namespace vaxo::linux_platform
