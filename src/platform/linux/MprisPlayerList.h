#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QSet>

#include <map>
#include <memory>

class OrgFreedesktopDBusPropertiesInterface;
class OrgMprisMediaPlayer2PlayerInterface;

namespace vaxo::linux_platform {

// The MPRIS players on a session bus (names under org.mpris.MediaPlayer2.), kept current from the
// bus's NameOwnerChanged, so that knowing who plays asks no player. Each player is reached through
// its unique connection name, so that a call never lands on a successor under the same name. Every
// call is asynchronous. Main thread only.
class MprisPlayerList : public QObject {
    Q_OBJECT
public:
    static constexpr int kCallTimeoutMs = 500;

    struct Player {
        QString name;     // org.mpris.MediaPlayer2.mpv
        QString owner;    // :1.42
        QString identity; // "mpv"; empty until the player has said
        std::unique_ptr<OrgFreedesktopDBusPropertiesInterface> properties;
        std::unique_ptr<OrgMprisMediaPlayer2PlayerInterface> transport;
        bool failing = false; // its last read failed (so that a failure is noted once)
    };

    explicit MprisPlayerList(const QDBusConnection &bus, QObject *parent = nullptr);
    ~MprisPlayerList() override;

    bool isEmpty() const { return m_players.empty(); }
    // By bus name, in name order.
    const std::map<QString, Player> &players() const { return m_players; }
    Player *find(const QString &name);

signals:
    void added(const QString &name);
    void removed(const QString &name);

private slots:
    void onOwnerChanged(const QString &name, const QString &oldOwner, const QString &newOwner);

private:
    void listNames();
    void lookUpOwner(const QString &name);
    void add(const QString &name, const QString &owner);
    void remove(const QString &name);
    void identify(Player &player);

    QDBusConnection m_bus;
    std::map<QString, Player> m_players;
    QSet<QString> m_lookingUp; // names seen in the list whose owner is being asked for
};

} // namespace vaxo::linux_platform
