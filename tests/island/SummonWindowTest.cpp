#include "app/AppActivity.h"
#include "app/IslandAppDelegate.h"
#include "island/IslandController.h"
#include "island/IslandState.h"
#include "island/summon/SummonPanel.h"
#include "island/summon/SummonView.h"

#include "PrivateSpeech.h"
#include "TempHome.h"

#include <QDateTime>
#include <QGuiApplication>
#include <QPointer>
#include <QProcess>
#include <QQuickView>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

#include <X11/Xlib.h>
#include <X11/keysym.h>

using namespace vaxo;

namespace {

// The program as it starts, over a throw-away home that Claude Code has never seen.
struct Program {
    explicit Program(const test::TempHome &home)
    {
        qputenv("HOME", home.root().toUtf8());
        delegate = std::make_unique<IslandAppDelegate>(home.paths());
        delegate->applicationDidFinishLaunching();
    }
    SummonPanel &summon() const { return delegate->summonPanel(); }

    std::unique_ptr<IslandAppDelegate> delegate;
};

// The keys pressed as a person presses them, through the X server.
void press(const char *keys)
{
    QProcess::execute(QStringLiteral("xdotool"), {QStringLiteral("key"), QLatin1String(keys)});
}

void pressHotKey()
{
    press("super+alt+i");
}

// Whether some client holds keycode with Alt and Super: another client's grab of it is refused.
bool heldByAnyone(Display *other, int keycode)
{
    static int refused = 0;
    refused = 0;
    XSetErrorHandler([](Display *, XErrorEvent *error) {
        refused = error->error_code;
        return 0;
    });
    XGrabKey(other, keycode, Mod1Mask | Mod4Mask, DefaultRootWindow(other), True, GrabModeAsync, GrabModeAsync);
    XSync(other, False);
    XUngrabKey(other, keycode, Mod1Mask | Mod4Mask, DefaultRootWindow(other));
    XSync(other, False);
    XSetErrorHandler(nullptr);
    return refused == BadAccess;
}

void remap(const QStringList &expressions)
{
    QStringList arguments;
    for (const QString &expression : expressions)
        arguments << QStringLiteral("-e") << expression;
    QProcess::execute(QStringLiteral("xmodmap"), arguments);
}

} // namespace

// Alt+Super+I and the summon panel on the test's X server.
class SummonWindowTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void hotKeyShowsHidesAndBuildsThePanelAgain();
    void aClickPutsHerAway();
    void aKeyHeldElsewhereIsLoggedAndTheIslandRunsOn();
    void theKeyFollowsANewKeyboardMap();
};

void SummonWindowTest::initTestCase()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        QSKIP("needs an X server");
    if (QStandardPaths::findExecutable(QStringLiteral("speech-dispatcher")).isEmpty())
        QSKIP("needs speech-dispatcher");
}

void SummonWindowTest::hotKeyShowsHidesAndBuildsThePanelAgain()
{
    test::PrivateSpeech speech;
    QVERIFY(speech.ready());
    qputenv("SPEECHD_ADDRESS", speech.address().toUtf8());
    test::TempHome home;
    Program program(home);
    SummonPanel &summon = program.summon();
    const AppActivity &activity = program.delegate->activity();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QRect where(screen.x() + screen.width() / 2 - 130, screen.top() + 32, 260, 260);

    pressHotKey();
    QTRY_VERIFY(summon.panel());
    QPointer<QQuickView> first = summon.panel();
    QVERIFY(QTest::qWaitForWindowExposed(first));
    QCOMPARE(first->geometry(), where);
    QVERIFY(first->flags() & Qt::WindowDoesNotAcceptFocus);
    QVERIFY(activity.summonShowing());
    // She says her line as she opens.
    QTRY_VERIFY_WITH_TIMEOUT(speech.spoken() > 0, 120000);

    pressHotKey();
    QTRY_VERIFY(first.isNull());
    QVERIFY(!summon.panel());
    QVERIFY(!activity.summonShowing());

    // The third press builds a new panel; Caps Lock on makes no difference.
    press("Caps_Lock");
    pressHotKey();
    press("Caps_Lock");
    QTRY_VERIFY(summon.panel());
    QVERIFY(QTest::qWaitForWindowExposed(summon.panel()));
    QCOMPARE(summon.panel()->geometry(), where);
    pressHotKey();
    QTRY_VERIFY(!summon.panel());
}

void SummonWindowTest::aClickPutsHerAway()
{
    test::TempHome home;
    QSettings(home.paths().settingsFile(), QSettings::IniFormat).setValue("vaxoIslandSpeak", false);
    Program program(home);
    SummonPanel &summon = program.summon();
    pressHotKey();
    QTRY_VERIFY(summon.panel());
    QPointer<QQuickView> panel = summon.panel();
    QVERIFY(QTest::qWaitForWindowExposed(panel));
    const QPoint centre = panel->geometry().center();
    QProcess::execute(QStringLiteral("xdotool"),
                      {"mousemove", QString::number(centre.x()), QString::number(centre.y())});
    QProcess::execute(QStringLiteral("xdotool"), {"click", "1"});
    QTRY_VERIFY(panel.isNull());
    QVERIFY(!program.delegate->activity().summonShowing());
}

void SummonWindowTest::aKeyHeldElsewhereIsLoggedAndTheIslandRunsOn()
{
    // Another program holds Alt+Super+I first.
    Display *other = XOpenDisplay(nullptr);
    QVERIFY(other);
    const Window root = DefaultRootWindow(other);
    const int keycode = XKeysymToKeycode(other, XK_i);
    XGrabKey(other, keycode, Mod1Mask | Mod4Mask, root, True, GrabModeAsync, GrabModeAsync);
    XSync(other, False);

    QTest::ignoreMessage(QtWarningMsg, "[summon] could not register hotkey (status 10); another app may own it");
    test::TempHome home;
    Program program(home);
    // The island goes on following the sessions folder.
    const QByteArray now = QByteArray::number(QDateTime::currentSecsSinceEpoch());
    test::TempHome::replace(home.paths().sessions() + "/a.json",
                            R"({"id":"a","agent":"claude","label":"api","status":"working","started":)" + now +
                                R"(,"updated":)" + now + "}");
    QTRY_COMPARE(program.delegate->state().agentSessions().size(), 1);
    QCOMPARE(program.summon().view()->line(), QStringLiteral("api is working."));

    XUngrabKey(other, keycode, AnyModifier, root);
    XCloseDisplay(other);
}

void SummonWindowTest::theKeyFollowsANewKeyboardMap()
{
    Display *other = XOpenDisplay(nullptr);
    QVERIFY(other);
    const int before = XKeysymToKeycode(other, XK_i);
    const int after = 120; // a key code that types nothing on the test server
    test::TempHome home;
    QSettings(home.paths().settingsFile(), QSettings::IniFormat).setValue("vaxoIslandSpeak", false);
    Program program(home);
    QVERIFY(heldByAnyone(other, before));

    // The I key moves to another key code, as a new layout may do.
    remap({QStringLiteral("keycode %1 = NoSymbol").arg(before), QStringLiteral("keycode %1 = i I").arg(after)});
    QTRY_VERIFY(heldByAnyone(other, after));
    QVERIFY(!heldByAnyone(other, before));
    pressHotKey();
    QTRY_VERIFY(program.summon().panel());

    remap({QStringLiteral("keycode %1 = NoSymbol").arg(after), QStringLiteral("keycode %1 = i I").arg(before)});
    QTRY_VERIFY(heldByAnyone(other, before));
    XCloseDisplay(other);
}

QTEST_MAIN(SummonWindowTest)
#include "SummonWindowTest.moc"
