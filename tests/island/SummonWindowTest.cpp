#include "app/IslandAppDelegate.h"
#include "base/AppActivity.h"
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

// The program as it starts, over a throw-away home that Claude Code has never seen; silent unless speak.
std::unique_ptr<IslandAppDelegate> start(const test::TempHome &home, bool speak = false)
{
    qputenv("HOME", home.root().toUtf8());
    QSettings(home.paths().settingsFile(), QSettings::IniFormat).setValue("vaxoIslandSpeak", speak);
    auto program = std::make_unique<IslandAppDelegate>(home.paths());
    program->applicationDidFinishLaunching();
    return program;
}

// Keys, clicks and pointer moves as a person makes them, through the X server.
void xdotool(const QStringList &arguments)
{
    QProcess::execute(QStringLiteral("xdotool"), arguments);
}

const QStringList kHotKey{QStringLiteral("key"), QStringLiteral("super+alt+i")};

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

// Moves the I key from one key code to another, as a new layout may do.
void moveKeyI(int from, int to)
{
    QProcess::execute(QStringLiteral("xmodmap"), {"-e", QStringLiteral("keycode %1 = NoSymbol").arg(from), "-e",
                                                  QStringLiteral("keycode %1 = i I").arg(to)});
}

} // namespace

// Alt+Super+I and the summon panel on the test's X server.
class SummonWindowTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != QLatin1String("xcb"))
            QSKIP("needs an X server");
        if (QStandardPaths::findExecutable(QStringLiteral("speech-dispatcher")).isEmpty())
            QSKIP("needs speech-dispatcher");
    }

    void hotKeyShowsHidesAndBuildsThePanelAgain()
    {
        test::PrivateSpeech speech;
        QVERIFY(speech.ready());
        qputenv("SPEECHD_ADDRESS", speech.address().toUtf8());
        test::TempHome home;
        const auto program = start(home, true);
        SummonPanel &summon = program->summonPanel();
        const AppActivity &activity = program->activity();
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        const QRect where(screen.x() + screen.width() / 2 - 130, screen.top() + 32, 260, 260);

        xdotool(kHotKey);
        QTRY_VERIFY(summon.panel());
        QPointer<QQuickView> first = summon.panel();
        QVERIFY(QTest::qWaitForWindowExposed(first));
        QCOMPARE(first->geometry(), where);
        QVERIFY(first->flags() & Qt::WindowDoesNotAcceptFocus);
        QVERIFY(activity.summonShowing());
        // She says her line as she opens.
        QTRY_VERIFY_WITH_TIMEOUT(speech.spoken() > 0, 120000);

        xdotool(kHotKey);
        QTRY_VERIFY(first.isNull());
        QVERIFY(!summon.panel());
        QVERIFY(!activity.summonShowing());

        // The third press builds a new panel; Caps Lock on makes no difference.
        xdotool({"key", "Caps_Lock"});
        xdotool(kHotKey);
        xdotool({"key", "Caps_Lock"});
        QTRY_VERIFY(summon.panel());
        QPointer<QQuickView> third = summon.panel();
        QVERIFY(QTest::qWaitForWindowExposed(third));
        QCOMPARE(third->geometry(), where);
        // A click puts her away.
        xdotool({"mousemove", QString::number(where.center().x()), QString::number(where.center().y())});
        xdotool({"click", "1"});
        QTRY_VERIFY(third.isNull());
        QVERIFY(!activity.summonShowing());
    }

    void aKeyHeldElsewhereIsLoggedAndANewKeyboardMapTakesItAgain()
    {
        // Another program holds Alt+Super+I first.
        Display *other = XOpenDisplay(nullptr);
        QVERIFY(other);
        const Window root = DefaultRootWindow(other);
        const int before = XKeysymToKeycode(other, XK_i);
        const int after = 120; // a key code that types nothing on the test server
        XGrabKey(other, before, Mod1Mask | Mod4Mask, root, True, GrabModeAsync, GrabModeAsync);
        XSync(other, False);

        QTest::ignoreMessage(QtWarningMsg, "[summon] could not register hotkey (status 10); another app may own it");
        test::TempHome home;
        const auto program = start(home);
        // The island goes on following the sessions folder.
        const QByteArray now = QByteArray::number(QDateTime::currentSecsSinceEpoch());
        test::TempHome::replace(home.paths().sessions() + "/a.json",
                                R"({"id":"a","agent":"claude","label":"api","status":"working","started":)" + now +
                                    R"(,"updated":)" + now + "}");
        QTRY_COMPARE(program->state().agentSessions().size(), 1);
        QCOMPARE(program->summonPanel().view()->line(), QStringLiteral("api is working."));

        // The other program lets go; the key is taken again where a new map puts it, and only there.
        XUngrabKey(other, before, AnyModifier, root);
        XSync(other, False);
        QVERIFY(!heldByAnyone(other, before));
        moveKeyI(before, after);
        QTRY_VERIFY(heldByAnyone(other, after));
        QVERIFY(!heldByAnyone(other, before));
        xdotool(kHotKey);
        QTRY_VERIFY(program->summonPanel().panel());

        moveKeyI(after, before);
        QTRY_VERIFY(heldByAnyone(other, before));
        XCloseDisplay(other);
    }
};

QTEST_MAIN(SummonWindowTest)
#include "SummonWindowTest.moc"
