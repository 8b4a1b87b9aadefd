#include "platform/linux/MprisPlayerList.h"

#include "platform/linux/MprisRecord.h"
#include "platform/linux/PendingCalls.h"

#include "mpris_player.h"
#include "mpris_properties.h"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace vaxo::linux_platform {
namespace {

const QString kBus = QStringLiteral("org.freedesktop.DBus");
const QString kBusPath = QStringLiteral("/org/freedesktop/DBus");
const QString kPlayerPath = QStringLiteral("/org/mpris/MediaPlayer2");

bool isPlayerName(const QString &name)
{
    return name.startsWith(QLatin1String(MprisRecord::kNamePrefix));
}

QDBusPendingCall askBus(QDBusConnection &bus, const QString &method, const QVariantList &arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(kBus, kBusPath, kBus, method);
    message.setArguments(arguments);
    return bus.asyncCall(message, MprisPlayerList::kCallTimeoutMs);
}

} // namespace

MprisPlayerList::MprisPlayerList(const QDBusConnection &bus, QObject *parent) : QObject(parent), m_bus(bus)
{
    if (!m_bus.isConnected())
        return;
    m_bus.connect(kBus, kBusPath, kBus, QStringLiteral("NameOwnerChanged"), this,
                  SLOT(onOwnerChanged(QString, QString, QString)));
    listNames();
}

MprisPlayerList::~MprisPlayerList() = default;

MprisPlayerList::Player *MprisPlayerList::find(const QString &name)
{
    const auto it = m_players.find(name);
    return it == m_players.end() ? nullptr : &it->second;
}

void MprisPlayerList::listNames()
{
    whenFinished(askBus(m_bus, QStringLiteral("ListNames")), this, [this](const QDBusPendingCall &call) {
        const QDBusPendingReply<QStringList> reply(call);
        for (const QString &name : reply.isValid() ? reply.value() : QStringList()) {
            if (isPlayerName(name) && !m_players.count(name))
                lookUpOwner(name);
        }
    });
}

void MprisPlayerList::lookUpOwner(const QString &name)
{
    m_lookingUp.insert(name);
    whenFinished(askBus(m_bus, QStringLiteral("GetNameOwner"), {name}), this,
                 [this, name](const QDBusPendingCall &call) {
                     const QDBusPendingReply<QString> reply(call);
                     // The name may have gone, or come anew through NameOwnerChanged, while the bus answered.
                     if (m_lookingUp.remove(name) && reply.isValid())
                         add(name, reply.value());
                 });
}

void MprisPlayerList::onOwnerChanged(const QString &name, const QString &, const QString &newOwner)
{
    if (!isPlayerName(name))
        return;
    m_lookingUp.remove(name);
    remove(name);
    if (!newOwner.isEmpty())
        add(name, newOwner);
}

void MprisPlayerList::add(const QString &name, const QString &owner)
{
    Player &player = m_players[name];
    player.name = name;
    player.owner = owner;
    player.properties = std::make_unique<OrgFreedesktopDBusPropertiesInterface>(owner, kPlayerPath, m_bus);
    player.properties->setTimeout(kCallTimeoutMs);
    player.transport = std::make_unique<OrgMprisMediaPlayer2PlayerInterface>(owner, kPlayerPath, m_bus);
    player.transport->setTimeout(kCallTimeoutMs);
    identify(player);
    emit added(name);
}

void MprisPlayerList::remove(const QString &name)
{
    if (m_players.erase(name))
        emit removed(name);
}

void MprisPlayerList::identify(Player &player)
{
    const QString name = player.name, owner = player.owner;
    whenFinished(player.properties->Get(QStringLiteral("org.mpris.MediaPlayer2"), QStringLiteral("Identity")), this,
                 [this, name, owner](const QDBusPendingCall &call) {
                     const QDBusPendingReply<QDBusVariant> reply(call);
                     Player *player = find(name);
                     if (player && player->owner == owner && reply.isValid())
                         player->identity = reply.value().variant().toString();
                 });
}

} // namespace vaxo::linux_platform
