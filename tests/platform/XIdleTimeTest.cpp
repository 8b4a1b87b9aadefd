#include "platform/x11/XScreenSaverIdleTime.h"

#include <QProcess>
#include <QTest>

using vaxo::linux_platform::XScreenSaverIdleTime;

// The X server's idle time: any synthetic input resets it; no server means never idle.
class XIdleTimeTest : public QObject {
    Q_OBJECT
private slots:
    void inputResetsIdleTime_data()
    {
        // No wheel: the window manager would switch desktops under the other tests' windows.
        QTest::addColumn<QStringList>("xdotool");
        QTest::newRow("pointer") << QStringList{"mousemove_relative", "1", "1"};
        QTest::newRow("key") << QStringList{"key", "shift"};
    }
    void inputResetsIdleTime()
    {
        if (qEnvironmentVariableIsEmpty("DISPLAY"))
            QSKIP("needs an X server");
        QFETCH(QStringList, xdotool);
        XScreenSaverIdleTime idle;
        QTRY_VERIFY_WITH_TIMEOUT(idle.idleSeconds() >= 1.5, 10000);
        QCOMPARE(QProcess::execute("xdotool", xdotool), 0);
        QVERIFY2(idle.idleSeconds() < 1.5, qPrintable(QString::number(idle.idleSeconds())));
    }
    void noDisplayMeansNeverIdle()
    {
        const QByteArray display = qgetenv("DISPLAY");
        qputenv("DISPLAY", ":4095");
        XScreenSaverIdleTime idle;
        qputenv("DISPLAY", display);
        QCOMPARE(idle.idleSeconds(), 0.0);
    }
};

QTEST_GUILESS_MAIN(XIdleTimeTest)
#include "XIdleTimeTest.moc"
