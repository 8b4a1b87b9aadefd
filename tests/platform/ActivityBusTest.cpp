#include "FakeClock.h"
#include "base/AppActivity.h"
#include "base/IslandScheduler.h"
#include "platform/linux/LinuxDisplayState.h"
#include "platform/linux/PowerProfilesLowPower.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QProcess>
#include <QTest>
#include <QThread>

using namespace vaxo;
Q_DECLARE_METATYPE(vaxo::Tier)
using vaxo::linux_platform::LinuxDisplayState;
using vaxo::linux_platform::PowerProfilesLowPower;

namespace {

const QString kSession = QStringLiteral("/org/freedesktop/login1/session/_32");
const QString kProps = QStringLiteral("org.freedesktop.DBus.Properties");

// Stand-ins for logind and the power profiles service (under its older name), answering from a thread
// of their own so that the sources' blocking look-ups get their replies.
class StandInLogind : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
public slots:
    QDBusObjectPath GetSessionByPID(uint) { return QDBusObjectPath(kSession); }
};

class StandInPowerProfiles : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "net.hadess.PowerProfiles")
    Q_PROPERTY(QString ActiveProfile READ activeProfile)
public:
    QString activeProfile() const { return QStringLiteral("power-saver"); }
};

// A private dbus-daemon of our own, ended with the process object; returns its address.
QString startBus(QProcess &daemon)
{
    daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
    return daemon.waitForReadyRead(10000) ? QString::fromUtf8(daemon.readLine()).trimmed() : QString();
}

QVariantList changed(const QString &interface, const QString &property, const QVariant &value)
{
    return {interface, QVariantMap{{property, value}}, QStringList{}};
}

bool emitSignal(const QString &path, const QString &interface, const QString &member, const QVariantList &args)
{
    QDBusMessage message = QDBusMessage::createSignal(path, interface, member);
    message.setArguments(args);
    return QDBusConnection(QStringLiteral("stand-ins")).send(message);
}

} // namespace

class ActivityBusTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        m_address = startBus(m_daemon);
        QVERIFY(!m_address.isEmpty());
        qunsetenv("XDG_SESSION_ID");
        m_thread.start();
        m_logind.moveToThread(&m_thread);
        m_profiles.moveToThread(&m_thread);
        QDBusConnection services = QDBusConnection::connectToBus(m_address, QStringLiteral("stand-ins"));
        QVERIFY(services.registerObject("/org/freedesktop/login1", &m_logind, QDBusConnection::ExportAllSlots));
        QVERIFY(
            services.registerObject("/net/hadess/PowerProfiles", &m_profiles, QDBusConnection::ExportAllProperties));
        for (const char *name : {"org.freedesktop.login1", "org.freedesktop.ScreenSaver", "net.hadess.PowerProfiles"})
            QVERIFY(services.registerService(QString::fromLatin1(name)));
    }
    void cleanupTestCase()
    {
        QDBusConnection::disconnectFromBus(QStringLiteral("stand-ins"));
        m_thread.quit();
        m_thread.wait();
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    void signalsMoveTheGateAndTier_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("interface");
        QTest::addColumn<QStringList>("members"); // closing, opening
        QTest::addColumn<QVariantList>("close");
        QTest::addColumn<QVariantList>("open");
        QTest::addColumn<Tier>("closed");
        const QString session = QStringLiteral("org.freedesktop.login1.Session"), power = "net.hadess.PowerProfiles";
        const QStringList changes{"PropertiesChanged", "PropertiesChanged"};
        QTest::newRow("session lock") << kSession << session << QStringList{"Lock", "Unlock"} << QVariantList{}
                                      << QVariantList{} << Tier::Away;
        QTest::newRow("locked hint") << kSession << kProps << changes << changed(session, "LockedHint", true)
                                     << changed(session, "LockedHint", false) << Tier::Away;
        QTest::newRow("sleep") << "/org/freedesktop/login1"
                               << "org.freedesktop.login1.Manager" << QStringList{"PrepareForSleep", "PrepareForSleep"}
                               << QVariantList{true} << QVariantList{false} << Tier::Away;
        QTest::newRow("screen saver") << "/org/freedesktop/ScreenSaver"
                                      << "org.freedesktop.ScreenSaver" << QStringList{"ActiveChanged", "ActiveChanged"}
                                      << QVariantList{true} << QVariantList{false} << Tier::Away;
        QTest::newRow("power saver") << "/net/hadess/PowerProfiles" << kProps << changes
                                     << changed(power, "ActiveProfile", "power-saver")
                                     << changed(power, "ActiveProfile", "balanced") << Tier::Idle;
    }
    void signalsMoveTheGateAndTier()
    {
        QFETCH(QString, path);
        QFETCH(QString, interface);
        QFETCH(QStringList, members);
        QFETCH(QVariantList, close);
        QFETCH(QVariantList, open);
        QFETCH(Tier, closed);
        QDBusConnection bus = QDBusConnection::connectToBus(m_address, QStringLiteral("sources"));
        auto *power = closed == Tier::Idle ? new PowerProfilesLowPower(bus) : nullptr;
        test::FakeClock clock;
        AppActivity activity({new LinuxDisplayState(bus, bus), power, nullptr}, {});
        IslandScheduler scheduler(clock, activity, nullptr);
        scheduler.schedule({QStringLiteral("island.fullscreen"), 10, 30, {}, [] {}});
        activity.setSummonShowing(true);
        QCOMPARE(activity.islandAnimating(), !power); // the power profile is read at creation: power-saver
        for (bool opening : {true, false, true}) {
            QVERIFY(emitSignal(path, interface, members[opening], opening ? open : close));
            QTRY_COMPARE(activity.islandAnimating(), opening);
            QCOMPARE(scheduler.tier(), opening ? Tier::Active : closed);
        }
    }
    void missingServicesChangeNothing()
    {
        QProcess daemon;
        const QDBusConnection empty = QDBusConnection::connectToBus(startBus(daemon), QStringLiteral("empty"));
        const QDBusConnection none = QDBusConnection::connectToBus("unix:path=/nonexistent/bus", "none");
        QVERIFY(empty.isConnected() && !none.isConnected());
        for (const QDBusConnection &connection : {empty, none}) {
            QVERIFY(LinuxDisplayState(connection, connection).sessionPath().isEmpty());
            QVERIFY(!PowerProfilesLowPower(connection).isLowPower());
        }
        daemon.kill();
        daemon.waitForFinished();
    }

private:
    QProcess m_daemon;
    QString m_address;
    QThread m_thread;
    StandInLogind m_logind;
    StandInPowerProfiles m_profiles;
};

QTEST_GUILESS_MAIN(ActivityBusTest)
#include "ActivityBusTest.moc"
