#include "FakeClock.h"
#include "app/AppActivity.h"
#include "app/IslandScheduler.h"
#include "platform/linux/LinuxDisplayState.h"
#include "platform/linux/PowerProfilesLowPower.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QProcess>
#include <QTest>
#include <QThread>

#include <csignal>

using namespace vaxo;
using vaxo::linux_platform::LinuxDisplayState;
using vaxo::linux_platform::PowerProfilesLowPower;

namespace {

const QString kSessionPath = QStringLiteral("/org/freedesktop/login1/session/_32");

// Stand-ins for logind's manager and power-profiles-daemon (under its older name), answering from a
// thread of their own so that the sources' blocking look-ups get their replies.
class StandInLogind : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
public slots:
    QDBusObjectPath GetSessionByPID(uint) { return QDBusObjectPath(kSessionPath); }
};

class StandInPowerProfiles : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "net.hadess.PowerProfiles")
    Q_PROPERTY(QString ActiveProfile READ activeProfile)
public:
    QString activeProfile() const { return QStringLiteral("power-saver"); }
};

// A private bus of our own: its address and the daemon's process id.
struct PrivateBus {
    QString address;
    pid_t pid = 0;
};

PrivateBus startBus()
{
    QProcess daemon;
    daemon.start(QStringLiteral("dbus-daemon"), {"--session", "--fork", "--print-address=1", "--print-pid=1"});
    daemon.waitForFinished(10000);
    const QStringList lines = QString::fromUtf8(daemon.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    if (lines.size() != 2)
        return {};
    return {lines.at(0).trimmed(), pid_t(lines.at(1).trimmed().toLongLong())};
}

QVariantList propertiesChanged(const QString &interface, const QString &property, const QVariant &value)
{
    return {interface, QVariantMap{{property, value}}, QStringList{}};
}

} // namespace

class ActivityBusTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void lowPowerFollowsTheProfile();
    void signalsCloseAndOpenTheGate_data();
    void signalsCloseAndOpenTheGate();
    void missingServicesChangeNothing();

private:
    void emitSignal(const QString &path, const QString &interface, const QString &member, const QVariantList &args);

    PrivateBus m_bus;
    QThread m_serviceThread;
    StandInLogind m_logind;
    StandInPowerProfiles m_profiles;
};

void ActivityBusTest::initTestCase()
{
    m_bus = startBus();
    QVERIFY(m_bus.pid > 0);
    qunsetenv("XDG_SESSION_ID");

    m_serviceThread.start();
    m_logind.moveToThread(&m_serviceThread);
    m_profiles.moveToThread(&m_serviceThread);
    QDBusConnection services = QDBusConnection::connectToBus(m_bus.address, QStringLiteral("stand-ins"));
    QVERIFY(services.isConnected());
    QVERIFY(services.registerObject("/org/freedesktop/login1", &m_logind, QDBusConnection::ExportAllSlots));
    QVERIFY(services.registerObject("/net/hadess/PowerProfiles", &m_profiles, QDBusConnection::ExportAllProperties));
    for (const char *name : {"org.freedesktop.login1", "org.freedesktop.ScreenSaver", "net.hadess.PowerProfiles"})
        QVERIFY(services.registerService(QString::fromLatin1(name)));
}

void ActivityBusTest::cleanupTestCase()
{
    QDBusConnection::disconnectFromBus(QStringLiteral("stand-ins"));
    m_serviceThread.quit();
    m_serviceThread.wait();
    if (m_bus.pid > 0)
        ::kill(m_bus.pid, SIGTERM);
}

void ActivityBusTest::emitSignal(const QString &path, const QString &interface, const QString &member,
                                 const QVariantList &args)
{
    QDBusMessage message = QDBusMessage::createSignal(path, interface, member);
    message.setArguments(args);
    QVERIFY(QDBusConnection(QStringLiteral("stand-ins")).send(message));
}

void ActivityBusTest::lowPowerFollowsTheProfile()
{
    QDBusConnection bus = QDBusConnection::connectToBus(m_bus.address, QStringLiteral("power"));
    test::FakeClock clock;
    AppActivity activity({nullptr, new PowerProfilesLowPower(bus), nullptr}, {});
    IslandScheduler scheduler(clock, activity, nullptr);
    scheduler.schedule({QStringLiteral("island.clipboard"), 0.7, 3, {}, [] {}});
    QVERIFY(activity.lowPower());
    QCOMPARE(scheduler.tier(), Tier::Idle);

    const QString iface = QStringLiteral("net.hadess.PowerProfiles");
    emitSignal("/net/hadess/PowerProfiles", "org.freedesktop.DBus.Properties", "PropertiesChanged",
               propertiesChanged(iface, "ActiveProfile", "balanced"));
    QTRY_VERIFY(!activity.lowPower());
    QCOMPARE(scheduler.tier(), Tier::Active);
    emitSignal("/net/hadess/PowerProfiles", "org.freedesktop.DBus.Properties", "PropertiesChanged",
               propertiesChanged(iface, "ActiveProfile", "power-saver"));
    QTRY_COMPARE(scheduler.tier(), Tier::Idle);
}

void ActivityBusTest::signalsCloseAndOpenTheGate_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QVariantList>("lost");
    QTest::addColumn<QVariantList>("back");
    const QString session = QStringLiteral("org.freedesktop.login1.Session");
    QTest::newRow("session lock") << kSessionPath << session << "Lock" << QVariantList{} << QVariantList{};
    QTest::newRow("locked hint") << kSessionPath << "org.freedesktop.DBus.Properties"
                                 << "PropertiesChanged" << propertiesChanged(session, "LockedHint", true)
                                 << propertiesChanged(session, "LockedHint", false);
    QTest::newRow("sleep") << "/org/freedesktop/login1"
                           << "org.freedesktop.login1.Manager"
                           << "PrepareForSleep" << QVariantList{true} << QVariantList{false};
    QTest::newRow("screen saver") << "/org/freedesktop/ScreenSaver"
                                  << "org.freedesktop.ScreenSaver"
                                  << "ActiveChanged" << QVariantList{true} << QVariantList{false};
}

void ActivityBusTest::signalsCloseAndOpenTheGate()
{
    QFETCH(QString, path);
    QFETCH(QString, interface);
    QFETCH(QString, member);
    QFETCH(QVariantList, lost);
    QFETCH(QVariantList, back);
    QDBusConnection bus = QDBusConnection::connectToBus(m_bus.address, QStringLiteral("display"));
    auto *display = new LinuxDisplayState(bus, bus);
    QCOMPARE(display->sessionPath(), kSessionPath);
    test::FakeClock clock;
    AppActivity activity({display, nullptr, nullptr}, {});
    IslandScheduler scheduler(clock, activity, nullptr);
    scheduler.schedule({QStringLiteral("island.fullscreen"), 10, 30, {}, [] {}});
    activity.setSummonShowing(true);
    QVERIFY(activity.islandAnimating());

    emitSignal(path, interface, member, lost);
    QTRY_VERIFY(!activity.displayUsable());
    QVERIFY(!activity.islandAnimating());
    QCOMPARE(scheduler.tier(), Tier::Away);

    // A lock answers with Unlock, the rest with the same signal saying false.
    emitSignal(path, interface, member == "Lock" ? QStringLiteral("Unlock") : member, back);
    QTRY_VERIFY(activity.displayUsable());
    QVERIFY(activity.islandAnimating());
    QCOMPARE(scheduler.tier(), Tier::Active);
}

void ActivityBusTest::missingServicesChangeNothing()
{
    const PrivateBus bus = startBus();
    QVERIFY(bus.pid > 0);
    QDBusConnection empty = QDBusConnection::connectToBus(bus.address, QStringLiteral("empty"));
    QVERIFY(empty.isConnected());
    const QDBusConnection none = QDBusConnection::connectToBus("unix:path=/nonexistent/bus", "none");
    QVERIFY(!none.isConnected());
    for (const QDBusConnection &connection : {empty, none}) {
        LinuxDisplayState display(connection, connection);
        PowerProfilesLowPower power(connection);
        QVERIFY(display.sessionPath().isEmpty());
        QVERIFY(!power.isLowPower());
    }
    ::kill(bus.pid, SIGTERM);
}

QTEST_GUILESS_MAIN(ActivityBusTest)
#include "ActivityBusTest.moc"
