#include "base/LoginItem.h"
#include "platform/linux/DesktopEntryApps.h"
#include "platform/linux/MachineModel.h"
#include "platform/linux/XdgAutostart.h"

#include "TempHome.h"

#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace vaxo;
using namespace vaxo::linux_platform;
using test::TempHome;

// Launch at login, the machine's model and application icons, on real files in the XDG places.
class XdgDesktopTest : public QObject {
    Q_OBJECT
private slots:
    void theSwitchWritesAndReadsTheAutostartEntry()
    {
        TempHome home;
        XdgAutostart autostart(home.root() + "/config/autostart", "/opt/vaxo/bin/vaxo-island");
        LoginItem item(autostart);
        QSignalSpy changes(&item, &LoginItem::enabledChanged);
        QVERIFY(!item.enabled());

        item.toggle();
        QVERIFY(item.enabled());
        QCOMPARE(changes.size(), 1);
        const QByteArray entry = TempHome::read(autostart.entryPath());
        QVERIFY(entry.startsWith("[Desktop Entry]\nType=Application\n"));
        QVERIFY(entry.contains("\nExec=/opt/vaxo/bin/vaxo-island\n"));

        item.toggle();
        QVERIFY(!item.enabled());
        QVERIFY(!QFile::exists(autostart.entryPath()));
        QCOMPARE(changes.size(), 2);

        // Written by somebody else: read again when the card is drawn.
        TempHome::write(autostart.entryPath(), XdgAutostart::entry("/opt/vaxo/bin/vaxo-island"));
        QVERIFY(!item.enabled());
        item.refresh();
        QVERIFY(item.enabled());

        // A desktop's own switch marks the entry hidden: that is off, and switching on writes it anew.
        TempHome::write(autostart.entryPath(), XdgAutostart::entry("/opt/vaxo/bin/vaxo-island") + "Hidden=true\n");
        item.refresh();
        QVERIFY(!item.enabled());
        item.toggle();
        QVERIFY(item.enabled());
        QVERIFY(!TempHome::read(autostart.entryPath()).contains("Hidden"));
    }

    void aFailureIsLoggedAndTheSwitchStays()
    {
        TempHome home;
        TempHome::write(home.root() + "/autostart", "a file where the folder should be");
        XdgAutostart autostart(home.root() + "/autostart", "/usr/bin/vaxo-island");
        LoginItem item(autostart);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^\\[island\\] login item: cannot create "));
        item.toggle();
        QVERIFY(!item.enabled());
    }

    void programPathsAreQuoted_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QByteArray>("exec");
        QTest::newRow("plain") << "/usr/bin/vaxo-island" << QByteArray("Exec=/usr/bin/vaxo-island\n");
        QTest::newRow("blank") << "/home/me/VAXO Island/vaxo-island"
                               << QByteArray("Exec=\"/home/me/VAXO Island/vaxo-island\"\n");
        QTest::newRow("specials") << "/opt/a$b\"c\\d%e" << QByteArray("Exec=\"/opt/a\\\\$b\\\\\"c\\\\\\\\d%%e\"\n");
    }
    void programPathsAreQuoted()
    {
        QFETCH(QString, program);
        QFETCH(QByteArray, exec);
        QVERIFY2(XdgAutostart::entry(program).contains("\n" + exec), XdgAutostart::entry(program).constData());
    }

    void machineModel()
    {
        TempHome home;
        const QString product = home.root() + "/product_name", tree = home.root() + "/model";
        QCOMPARE(linux_platform::machineModel(product, tree), QStringLiteral("unknown"));
        TempHome::write(tree, QByteArray("Raspberry Pi 4 Model B Rev 1.4\0", 31));
        QCOMPARE(linux_platform::machineModel(product, tree), QStringLiteral("Raspberry Pi 4 Model B Rev 1.4"));
        TempHome::write(product, "ThinkPad X1 Carbon Gen 11\n");
        QCOMPARE(linux_platform::machineModel(product, tree), QStringLiteral("ThinkPad X1 Carbon Gen 11"));
    }

    void installedApplicationsByDesktopEntry()
    {
        TempHome home;
        qputenv("XDG_DATA_HOME", home.root().toUtf8());
        TempHome::write(home.root() + "/applications/com.openai.codex.desktop",
                        "[Desktop Entry]\nName=Codex\nIcon=com.openai.codex\n[Desktop Action new]\nIcon=other\n");
        TempHome::write(home.root() + "/applications/no-icon.desktop", "[Desktop Entry]\nName=Nothing\n");
        DesktopEntryApps apps;
        QCOMPARE(apps.icon("com.openai.codex"), QStringLiteral("com.openai.codex"));
        QCOMPARE(apps.icon("no-icon"), std::nullopt);
        QCOMPARE(apps.icon("com.openai.chat"), std::nullopt);
        QCOMPARE(apps.icon("../applications/no-icon"), std::nullopt);
        QCOMPARE(DesktopEntryApps::iconOf("[Other]\nIcon=x\n[Desktop Entry]\n Icon = y\nIcon=z"), QStringLiteral("y"));
    }
};

QTEST_GUILESS_MAIN(XdgDesktopTest)
#include "XdgDesktopTest.moc"
