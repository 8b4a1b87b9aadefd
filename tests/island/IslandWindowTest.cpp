#include "app/IslandAppDelegate.h"
#include "island/IslandController.h"
#include "island/IslandState.h"

#include "TempHome.h"

#include <QGuiApplication>
#include <QProcess>
#include <QQuickView>
#include <QScreen>
#include <QSettings>
#include <QTest>

#include <X11/Xlib.h>
#include <X11/extensions/shape.h>

using namespace vaxo;

namespace {

// The island as the program puts it together, over a throw-away home.
struct Island {
    explicit Island(bool enabled = true)
    {
        if (!enabled)
            QSettings(home.paths().settingsFile(), QSettings::IniFormat).setValue("vaxoIslandEnabled", false);
        delegate = std::make_unique<IslandAppDelegate>(home.paths());
        delegate->controller().start();
    }

    test::TempHome home;
    std::unique_ptr<IslandAppDelegate> delegate;
};

} // namespace

// The island's real window on the test's X server.
class IslandWindowTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void hangsAtTopCentreAndFollowsTheSessionsFolder();
    void disabledIslandShowsNothing();

private:
    static QRect inputShape(QWindow &window);
    static QColor pixel(int x, int y);
};

void IslandWindowTest::initTestCase()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        QSKIP("needs an X server");
    // A coloured desktop, so that the island can be told apart from it.
    QProcess::execute(QStringLiteral("xsetroot"), {QStringLiteral("-solid"), QStringLiteral("#336699")});
}

QRect IslandWindowTest::inputShape(QWindow &window)
{
    Display *dpy = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->display();
    int count = 0, ordering = 0;
    XRectangle *rects = XShapeGetRectangles(dpy, window.winId(), ShapeInput, &count, &ordering);
    const QRect rect = count == 1 ? QRect(rects[0].x, rects[0].y, rects[0].width, rects[0].height) : QRect();
    XFree(rects);
    return rect;
}

QColor IslandWindowTest::pixel(int x, int y)
{
    return QGuiApplication::primaryScreen()->grabWindow(0, x, y, 1, 1).toImage().pixelColor(0, 0);
}

void IslandWindowTest::hangsAtTopCentreAndFollowsTheSessionsFolder()
{
    Island island;
    const test::TempHome &home = island.home;
    IslandState &state = island.delegate->state();
    IslandController &controller = island.delegate->controller();

    QQuickView *panel = controller.panel();
    QVERIFY(panel);
    QVERIFY(QTest::qWaitForWindowExposed(panel));
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(panel->geometry(), QRect(screen.center().x() + 1 - 330, screen.top(), 660, 892));
    QCOMPARE(controller.islandSize().width(), 190.0);
    QCOMPARE(inputShape(*panel), QRect((660 - 190) / 2 - 6, 0, 190 + 12, 32 + 6));
    QTRY_COMPARE(pixel(screen.center().x(), 16), QColor(Qt::black));
    // The rendered frame itself, whatever composites it: an opaque body with rounded bottom corners.
    const QImage frame = panel->grabWindow();
    QCOMPARE(frame.pixelColor(330, 16), QColor(Qt::black));
    QCOMPARE(frame.pixelColor(330 - 90, 16).alpha(), 255);
    QCOMPARE(frame.pixelColor(330 - 95, 31).alpha(), 0); // the bottom-left corner is cut round
    QCOMPARE(frame.pixelColor(330, 40).alpha(), 0);
    QCOMPARE(frame.pixelColor(10, 10).alpha(), 0);

    // A session file written by hand, the way the hook writes it.
    test::TempHome::replace(home.paths().sessions() + "/s.json",
                            R"({"id":"s","agent":"claude","label":"p","status":"waiting","ask_id":"t"})");
    QTRY_COMPARE(state.agentsLabel(), QStringLiteral("1 session needs you"));
    // The alert opens the card and the click area grows with it.
    QVERIFY(state.expanded());
    QTRY_COMPARE(controller.islandSize().width(), 500.0);
    QTRY_COMPARE(inputShape(*panel),
                 QRect((660 - 500) / 2 - 18, 0, 500 + 36, int(controller.islandSize().height()) + 18));

    state.collapse();
    QTRY_COMPARE(controller.islandSize().width(), 350.0);
    QTRY_COMPARE(pixel(screen.center().x() - 170, 30), QColor(Qt::black));
    QTRY_COMPARE(pixel(screen.center().x() - 190, 30), QColor(0x33, 0x66, 0x99)); // beside it, the desktop
}

void IslandWindowTest::disabledIslandShowsNothing()
{
    Island island(false);
    QVERIFY(!island.delegate->controller().panel());
    QVERIFY(!island.delegate->state().running());
}

QTEST_MAIN(IslandWindowTest)
#include "IslandWindowTest.moc"
