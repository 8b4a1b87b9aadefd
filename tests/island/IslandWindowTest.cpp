#include "agents/HookInstaller.h"
#include "app/IslandAppDelegate.h"
#include "base/Clock.h"
#include "island/IslandController.h"
#include "island/IslandState.h"

#include "TempHome.h"
#include "Xterm.h"

#include <QGuiApplication>
#include <QProcess>
#include <QQuickItem>
#include <QQuickView>
#include <QRasterWindow>
#include <QRegularExpression>
#include <QScreen>
#include <QSettings>
#include <QTest>

#include <X11/Xlib.h>
#include <X11/extensions/shape.h>

using namespace vaxo;

namespace {

// The island as the program puts it together, over a throw-away home, with the hook in place.
struct Island {
    explicit Island(bool enabled = true)
    {
        if (!enabled)
            QSettings(home.paths().settingsFile(), QSettings::IniFormat).setValue("vaxoIslandEnabled", false);
        HookInstaller installer(home.paths(), home.root(), Clock::system());
        installer.writeScript();
        installer.writeReporter();
        delegate = std::make_unique<IslandAppDelegate>(home.paths());
        delegate->controller().start();
    }

    IslandState &state() const { return delegate->state(); }
    IslandController &controller() const { return delegate->controller(); }
    QQuickView &panel() const { return *controller().panel(); }
    // The island on the screen, in the pointer's coordinates.
    QRectF frame() const
    {
        const QSizeF size = controller().islandSize();
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        return {screen.center().x() + 1 - size.width() / 2, double(screen.top()), size.width(), size.height()};
    }
    // The card has grown to its full size.
    bool opened() const
    {
        auto *body = panel().rootObject()->findChild<QQuickItem *>(QStringLiteral("island"));
        return state().expanded() && body && body->height() == controller().islandSize().height();
    }
    QPointF centreOf(const char *objectName) const
    {
        auto *item = find(panel().rootObject(), QLatin1String(objectName));
        return item ? item->mapToGlobal(item->boundingRect().center()) : QPointF(-1, -1);
    }
    // The first visible item of that name, also among the items a Repeater made.
    static QQuickItem *find(QQuickItem *under, QLatin1String objectName)
    {
        if (under->objectName() == objectName && under->isVisible())
            return under;
        for (QQuickItem *child : under->childItems())
            if (QQuickItem *found = find(child, objectName))
                return found;
        return nullptr;
    }

    test::TempHome home;
    std::unique_ptr<IslandAppDelegate> delegate;
};

// Real pointer events through the X server, as a person's mouse makes them: a warp next to the place,
// then the last pixel as device motion, which a warp alone does not make.
void pointerTo(const QPointF &at)
{
    const QPoint to = at.toPoint();
    QProcess::execute("xdotool", {"mousemove", QString::number(to.x() - 1), QString::number(to.y())});
    QProcess::execute("xdotool", {"mousemove_relative", "1", "0"});
}

void clickAt(const QPointF &at)
{
    pointerTo(at);
    QProcess::execute("xdotool", {"click", "1"});
}

QPointF farAway()
{
    return QGuiApplication::primaryScreen()->geometry().bottomLeft() + QPointF(40, -40);
}

// A window of another kind below the panel, which counts the clicks that reach it.
class WindowBelow final : public QRasterWindow {
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
    void paintEvent(QPaintEvent *) override {}
};

} // namespace

// The island's real window on the test's X server, driven by a real pointer.
class IslandWindowTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init()
    {
        // A view that does not load, or a binding that breaks, says so only as a warning.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("^qrc:")));
        pointerTo(farAway());
    }
    void hangsAtTopCentreAndFollowsTheSessionsFolder();
    void hoverOpensAndLeavingClosesUnlessPinned();
    void pressesElsewhereCloseTheCard();
    void clicksBesideTheIslandReachTheWindowBelow();
    void answerButtonsAnswerTheWaitingReporter_data();
    void answerButtonsAnswerTheWaitingReporter();
    void aClickOnASessionBringsItsTerminalForward_data();
    void aClickOnASessionBringsItsTerminalForward();
    void fullScreenWindowsConcealTheIsland();
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
    IslandState &state = island.state();
    QQuickView &panel = island.panel();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(panel.geometry(), QRect(screen.center().x() + 1 - 330, screen.top(), 660, 892));
    QCOMPARE(island.controller().islandSize(), QSizeF(190, 32));
    QCOMPARE(inputShape(panel), QRect((660 - 190) / 2 - 6, 0, 190 + 12, 32 + 6));
    QTRY_COMPARE(pixel(screen.center().x() - 90, 16), QColor(Qt::black));
    // The rendered frame itself, whatever composites it, once grown to its full size: an opaque body
    // with rounded bottom corners.
    QTRY_COMPARE(panel.grabWindow().pixelColor(330 - 90, 16), QColor(Qt::black));
    const QImage frame = panel.grabWindow();
    QCOMPARE(frame.pixelColor(330 - 60, 16), QColor(Qt::black));
    QCOMPARE(frame.pixelColor(330 - 90, 16).alpha(), 255);
    QCOMPARE(frame.pixelColor(330 - 95, 31).alpha(), 0); // the bottom-left corner is cut round
    QCOMPARE(frame.pixelColor(330, 40).alpha(), 0);
    QCOMPARE(frame.pixelColor(10, 10).alpha(), 0);

    // A session file written by hand, the way the hook writes it.
    test::TempHome::replace(island.home.paths().sessions() + "/s.json",
                            R"({"id":"s","agent":"claude","label":"p","status":"waiting","ask_id":"t"})");
    QTRY_COMPARE(state.agentsLabel(), QStringLiteral("1 session needs you"));
    // The alert opens the card and the click area grows with it.
    QVERIFY(state.expanded());
    QTRY_COMPARE(island.controller().islandSize().width(), 500.0);
    const int height = int(island.controller().islandSize().height());
    QTRY_COMPARE(inputShape(panel), QRect((660 - 500) / 2 - 18, 0, 500 + 36, height + 18));

    state.collapse();
    QTRY_COMPARE(island.controller().islandSize().width(), 350.0);
    QTRY_COMPARE(pixel(screen.center().x() - 170, 30), QColor(Qt::black));
    QTRY_VERIFY(pixel(screen.center().x() - 190, 30) != QColor(Qt::black)); // beside it, the desktop
}

void IslandWindowTest::hoverOpensAndLeavingClosesUnlessPinned()
{
    Island island;
    IslandState &state = island.state();
    QVERIFY(QTest::qWaitForWindowExposed(&island.panel()));
    pointerTo(island.frame().center());
    QTRY_VERIFY(state.expanded());
    QVERIFY(state.pointerInside());
    pointerTo(farAway());
    QTRY_VERIFY(!state.expanded());

    // A waiting session pins the card open: the pointer leaving does not close it.
    test::TempHome::replace(island.home.paths().sessions() + "/w.json",
                            R"({"id":"w","agent":"claude","label":"w","status":"waiting"})");
    QTRY_VERIFY(state.pinnedByAlert());
    pointerTo(island.frame().center());
    QTRY_VERIFY(state.pointerInside());
    pointerTo(farAway());
    QTRY_VERIFY(!state.pointerInside());
    QTest::qWait(500); // well past the delay after which leaving would close it
    QVERIFY(state.expanded());
}

void IslandWindowTest::pressesElsewhereCloseTheCard()
{
    Island island;
    IslandState &state = island.state();
    QVERIFY(QTest::qWaitForWindowExposed(&island.panel()));
    state.setExpanded(true);
    QTRY_COMPARE(island.controller().islandSize().width(), 500.0);
    const QRectF card = island.frame();

    clickAt({card.center().x(), card.bottom() + 4}); // within the 6-point margin
    QTest::qWait(300);
    QVERIFY(state.expanded());
    clickAt({card.center().x(), card.bottom() + 10});
    QTRY_VERIFY(!state.expanded());
}

void IslandWindowTest::clicksBesideTheIslandReachTheWindowBelow()
{
    Island island;
    QQuickView &panel = island.panel();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    // Under an empty part of the panel, well below the closed island.
    WindowBelow below;
    below.setFlags(Qt::FramelessWindowHint);
    below.setGeometry(panel.geometry().x() + 40, 200, 120, 120);
    below.show();
    QVERIFY(QTest::qWaitForWindowExposed(&below));
    clickAt(below.geometry().center());
    QTRY_COMPARE(below.presses, 1);
}

void IslandWindowTest::answerButtonsAnswerTheWaitingReporter_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QByteArray>("behavior");
    QTest::newRow("allow") << "allowButton" << QByteArray("allow");
    QTest::newRow("deny") << "denyButton" << QByteArray("deny");
}

void IslandWindowTest::answerButtonsAnswerTheWaitingReporter()
{
    QFETCH(QString, button);
    QFETCH(QByteArray, behavior);
    Island island;
    QVERIFY(QTest::qWaitForWindowExposed(&island.panel()));

    // Claude Code asks through the hook, which waits for the island's answer.
    QProcess hook;
    QProcessEnvironment env;
    env.insert("PATH", "/usr/bin:/bin");
    env.insert("HOME", island.home.root());
    hook.setProcessEnvironment(env);
    hook.start("/bin/bash", {island.home.paths().hookScript(), "PermissionRequest"});
    hook.write(R"({"session_id":"s1","cwd":"/tmp/web-app","tool_name":"Bash",)"
               R"("tool_input":{"command":"rm -rf build"},"tool_use_id":"toolu_01"})");
    hook.closeWriteChannel();
    QTRY_VERIFY_WITH_TIMEOUT(island.state().expanded(), 30'000);
    QTRY_VERIFY(island.opened()); // a person sees the buttons once the card has grown
    const QPointF at = island.centreOf(qPrintable(button));
    clickAt(at);
    QTRY_COMPARE_WITH_TIMEOUT(hook.state(), QProcess::NotRunning, 30'000);
    QCOMPARE(hook.readAllStandardOutput(),
             R"({"hookSpecificOutput":{"hookEventName":"PermissionRequest","decision":{"behavior":")" + behavior +
                 "\"}}}\n");
}

void IslandWindowTest::aClickOnASessionBringsItsTerminalForward_data()
{
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("target");
    QTest::newRow("its row") << "working"
                             << "sessionRow";
    QTest::newRow("the waiting caption") << "waiting"
                                         << "waitingCaption";
}

void IslandWindowTest::aClickOnASessionBringsItsTerminalForward()
{
    QFETCH(QString, status);
    QFETCH(QString, target);
    test::Xterm agentTerminal, other;
    QTRY_VERIFY_WITH_TIMEOUT(agentTerminal.ready() && other.ready(), 20'000);
    QProcess::execute("xdotool", {"windowactivate", "--sync", QString::number(other.window())});
    QTRY_COMPARE(test::Xterm::activeWindow(), other.window());

    Island island;
    QVERIFY(QTest::qWaitForWindowExposed(&island.panel()));
    test::TempHome::replace(island.home.paths().sessions() + "/s.json",
                            QStringLiteral(R"({"id":"s","agent":"claude-code","label":"api","status":"%1","tty":"%2"})")
                                .arg(status, agentTerminal.tty())
                                .toUtf8());
    QTRY_COMPARE(island.state().agentSessions().size(), 1);
    island.state().setExpanded(true);
    QTRY_VERIFY(island.opened());
    clickAt(island.centreOf(qPrintable(target)));
    QTRY_VERIFY(!island.state().expanded());
    QTRY_COMPARE_WITH_TIMEOUT(test::Xterm::activeWindow(), agentTerminal.window(), 10'000);
}

void IslandWindowTest::fullScreenWindowsConcealTheIsland()
{
    Island island;
    IslandController &controller = island.controller();
    QQuickView &panel = island.panel();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    const QRectF frame = island.frame();

    QProcess terminal;
    terminal.start("xterm", {"-fullscreen", "-title", "covering"});
    QVERIFY(terminal.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(controller.concealed(), 20'000);
    QCOMPARE(inputShape(panel), QRect()); // every click goes to the full-screen window

    pointerTo(frame.center()); // the top centre brings it back
    QTRY_VERIFY(!controller.concealed());
    pointerTo({frame.center().x(), frame.bottom() + 50}); // near it, it stays
    QTest::qWait(300);
    QVERIFY(!controller.concealed());
    pointerTo({frame.center().x(), frame.bottom() + 120}); // farther than 70 points hides it again
    QTRY_VERIFY(controller.concealed());

    terminal.kill();
    terminal.waitForFinished();
    QTRY_VERIFY_WITH_TIMEOUT(!controller.concealed(), 20'000);
}

void IslandWindowTest::disabledIslandShowsNothing()
{
    Island island(false);
    QVERIFY(!island.controller().panel());
    QVERIFY(!island.state().running());
}

QTEST_MAIN(IslandWindowTest)
#include "IslandWindowTest.moc"
