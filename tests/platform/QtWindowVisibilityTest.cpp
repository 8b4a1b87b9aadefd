#include "platform/linux/QtWindowVisibility.h"
#include "base/AppActivity.h"

#include <QTest>
#include <QWindow>

using namespace vaxo;

// The gate's windowVisible over the program's real windows on the X server.
class QtWindowVisibilityTest : public QObject {
    Q_OBJECT
private slots:
    void ordinaryWindowsCount_data()
    {
        QTest::addColumn<Qt::WindowFlags>("flags");
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("counts");
        QTest::newRow("settings window") << Qt::WindowFlags(Qt::Window) << 480 << true;
        QTest::newRow("small window") << Qt::WindowFlags(Qt::Window) << 180 << false;
        QTest::newRow("island panel") << (Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) << 480
                                      << false;
        QTest::newRow("always on top") << (Qt::Window | Qt::WindowStaysOnTopHint) << 480 << false;
    }
    void ordinaryWindowsCount()
    {
        QFETCH(Qt::WindowFlags, flags);
        QFETCH(int, width);
        QFETCH(bool, counts);
        AppActivity activity({nullptr, nullptr, new linux_platform::QtWindowVisibility}, {});
        QVERIFY(!activity.windowVisible());
        QWindow window;
        window.setFlags(flags);
        window.resize(width, 360);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_COMPARE(activity.windowVisible(), counts); // announced once the event loop has run
        window.hide();
        QTRY_VERIFY(!activity.windowVisible());
    }
};

QTEST_MAIN(QtWindowVisibilityTest)
#include "QtWindowVisibilityTest.moc"
