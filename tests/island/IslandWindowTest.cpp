#include "agents/LocalHookSource.h"
#include "app/Clock.h"
#include "island/IslandController.h"
#include "island/IslandState.h"
#include "platform/PanelShell.h"
#include "platform/PlatformServices.h"
#include "platform/SoundPlayer.h"

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
    test::TempHome home;
    QSettings settings(home.paths().settingsFile(), QSettings::IniFormat);
    PlatformServices platform = PlatformServices::make();
    IslandState state(std::make_unique<LocalHookSource>(home.paths().sessions(), Clock::system(),
                                                        PlatformServices::newFolderWatcher()),
                      Clock::system(), settings, *platform.sounds);
    IslandController controller(state, *platform.panelShell, settings);
    controller.start();

    QQuickView *panel = controller.panel();
    QVERIFY(panel);
    QVERIFY(QTest::qWaitForWindowExposed(panel));
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(panel->geometry(), QRect(screen.center().x() + 1 - 330, screen.top(), 660, 892));
    QCOMPARE(controller.islandWidth(), 190.0);
    QCOMPARE(inputShape(*panel), QRect((660 - 190) / 2 - 6, 0, 190 + 12, 32 + 6));
    QTRY_COMPARE(pixel(screen.center().x(), 16), QColor(Qt::black));

    // A session file written by hand, the way the hook writes it.
    test::TempHome::write(home.paths().sessions() + "/.s.tmp",
                          R"({"id":"s","agent":"claude","label":"p","status":"waiting","ask_id":"t"})");
    QFile::rename(home.paths().sessions() + "/.s.tmp", home.paths().sessions() + "/s.json");
    QTRY_COMPARE(state.agentsLabel(), QStringLiteral("1 session needs you"));
    // The alert opens the card and the click area grows with it.
    QVERIFY(state.expanded());
    QTRY_COMPARE(controller.islandWidth(), 500.0);
    QTRY_COMPARE(inputShape(*panel), QRect((660 - 500) / 2 - 18, 0, 500 + 36, int(controller.islandHeight()) + 18));

    state.collapse();
    QTRY_COMPARE(controller.islandWidth(), 350.0);
    QTRY_COMPARE(pixel(screen.center().x() - 170, 30), QColor(Qt::black));
    QTRY_COMPARE(pixel(screen.center().x() - 190, 30), QColor(0x33, 0x66, 0x99)); // beside it, the desktop
}

void IslandWindowTest::disabledIslandShowsNothing()
{
    test::TempHome home;
    QSettings settings(home.paths().settingsFile(), QSettings::IniFormat);
    settings.setValue("vaxoIslandEnabled", false);
    PlatformServices platform = PlatformServices::make();
    IslandState state(std::make_unique<LocalHookSource>(home.paths().sessions(), Clock::system(),
                                                        PlatformServices::newFolderWatcher()),
                      Clock::system(), settings, *platform.sounds);
    IslandController controller(state, *platform.panelShell, settings);
    controller.start();
    QVERIFY(!controller.panel());
    QVERIFY(!state.running());
}

QTEST_MAIN(IslandWindowTest)
#include "IslandWindowTest.moc"
