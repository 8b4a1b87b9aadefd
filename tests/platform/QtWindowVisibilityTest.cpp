#include "platform/linux/QtWindowVisibility.h"
#include "app/AppActivity.h"

#include <QTest>
#include <QWindow>

using namespace vaxo;
using vaxo::linux_platform::QtWindowVisibility;

// The gate's windowVisible over the program's real windows on the X server.
class QtWindowVisibilityTest : public QObject {
    Q_OBJECT
private slots:
    void ordinaryWindowsCount_data();
    void ordinaryWindowsCount();
};

void QtWindowVisibilityTest::ordinaryWindowsCount_data()
{
    QTest::addColumn<Qt::WindowFlags>("flags");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("counts");
    QTest::newRow("settings window") << Qt::WindowFlags(Qt::Window) << QSize(480, 360) << true;
    QTest::newRow("small window") << Qt::WindowFlags(Qt::Window) << QSize(180, 360) << false;
    QTest::newRow("island panel") << (Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) << QSize(480, 360)
                                  << false;
    QTest::newRow("always on top") << (Qt::Window | Qt::WindowStaysOnTopHint) << QSize(480, 360) << false;
}

void QtWindowVisibilityTest::ordinaryWindowsCount()
{
    QFETCH(Qt::WindowFlags, flags);
    QFETCH(QSize, size);
    QFETCH(bool, counts);
    AppActivity activity({nullptr, nullptr, new QtWindowVisibility}, {});
    QVERIFY(!activity.windowVisible());

    QWindow window;
    window.setFlags(flags);
    window.resize(size);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // The source announces after the event loop has handled the window's events.
    QTRY_COMPARE(activity.windowVisible(), counts);
    window.hide();
    QTRY_VERIFY(!activity.windowVisible());
}

QTEST_MAIN(QtWindowVisibilityTest)
#include "QtWindowVisibilityTest.moc"
