#include "platform/linux/PowerProfilesLowPower.h"

#include <QDBusMessage>
#include <QDBusVariant>

#include <array>

namespace vaxo::linux_platform {
namespace {

struct Daemon {
    const char *name; // bus name and interface
    const char *path;
};
constexpr std::array<Daemon, 2> kDaemons{{
    {"org.freedesktop.UPower.PowerProfiles", "/org/freedesktop/UPower/PowerProfiles"},
    {"net.hadess.PowerProfiles", "/net/hadess/PowerProfiles"},
}};
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kActiveProfile = QStringLiteral("ActiveProfile");
constexpr int kReadTimeoutMs = 1000;

bool isPowerSaver(const QVariant &profile)
{
    return profile.toString() == QLatin1String("power-saver");
}

} // namespace

PowerProfilesLowPower::PowerProfilesLowPower(const QDBusConnection &system, QObject *parent) : LowPowerSource(parent)
{
    if (!system.isConnected())
        return;
    QDBusConnection bus = system;
    bool read = false;
    for (const Daemon &daemon : kDaemons) {
        const QString name = QString::fromLatin1(daemon.name);
        const QString path = QString::fromLatin1(daemon.path);
        bus.connect(name, path, kProperties, QStringLiteral("PropertiesChanged"), this,
                    SLOT(onProperties(QString, QVariantMap, QStringList)));
        if (read)
            continue;
        QDBusMessage get = QDBusMessage::createMethodCall(name, path, kProperties, QStringLiteral("Get"));
        get << name << kActiveProfile;
        const QDBusMessage reply = bus.call(get, QDBus::Block, kReadTimeoutMs);
        if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty()) {
            m_low = isPowerSaver(reply.arguments().constFirst().value<QDBusVariant>().variant());
            read = true;
        }
    }
}

void PowerProfilesLowPower::onProperties(const QString &interface, const QVariantMap &changed, const QStringList &)
{
    const auto profile = changed.constFind(kActiveProfile);
    const bool ours = std::any_of(kDaemons.begin(), kDaemons.end(),
                                  [&](const Daemon &d) { return interface == QLatin1String(d.name); });
    if (!ours || profile == changed.constEnd())
        return;
    m_low = isPowerSaver(*profile);
    emit powerStateChanged();
}

} // namespace vaxo::linux_platform
