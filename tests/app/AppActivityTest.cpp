#include "app/AppActivity.h"
#include "FakeActivitySources.h"

#include <QSignalSpy>
#include <QTest>

using namespace vaxo;
using Window = WindowVisibilitySource::Window;

Q_DECLARE_METATYPE(vaxo::IslandBusyInputs)
Q_DECLARE_METATYPE(QList<Window>)

class AppActivityTest : public QObject {
    Q_OBJECT
private slots:
    void gate_data();
    void gate();
    void switchesArePresenceOnly_data();
    void switchesArePresenceOnly();
    void summonTogglesBusy();
    void displayNotifiesOnlyOnChange();
    void lowPowerIsReadAtCreationAndOnChange();
    void windowVisibleRule_data();
    void windowVisibleRule();
    void debugLinesAreExact();
};

void AppActivityTest::gate_data()
{
    QTest::addColumn<bool>("forceOff");
    QTest::addColumn<bool>("displayLost");
    QTest::addColumn<bool>("lowPower");
    QTest::addColumn<IslandBusyInputs>("island");
    QTest::addColumn<bool>("busy");
    QTest::addColumn<bool>("animating");
    const IslandBusyInputs rest;
    const IslandBusyInputs waiting{false, false, false, false, false, 1};
    QTest::newRow("at rest") << false << false << false << rest << false << false;
    QTest::newRow("expanded") << false << false << false << IslandBusyInputs{true} << true << true;
    QTest::newRow("pointer inside") << false << false << false << IslandBusyInputs{false, true} << true << true;
    QTest::newRow("pinned") << false << false << false << IslandBusyInputs{false, false, true} << true << true;
    QTest::newRow("settings") << false << false << false << IslandBusyInputs{false, false, false, true} << true << true;
    QTest::newRow("just finished") << false << false << false << IslandBusyInputs{false, false, false, false, true}
                                   << true << true;
    QTest::newRow("a waiting session, collapsed") << false << false << false << waiting << true << true;
    QTest::newRow("forced off") << true << false << false << waiting << true << false;
    QTest::newRow("locked") << false << true << false << waiting << true << false;
    QTest::newRow("low power while agents work") << false << false << true << waiting << true << false;
}

void AppActivityTest::gate()
{
    QFETCH(bool, forceOff);
    QFETCH(bool, displayLost);
    QFETCH(bool, lowPower);
    QFETCH(IslandBusyInputs, island);
    auto *display = new DisplayStateSource;
    auto *power = new test::FakeLowPower;
    power->low = lowPower;
    AppActivity activity({display, power, nullptr}, {forceOff, false});
    if (displayLost)
        emit display->displayLost();
    activity.followIsland([island] { return island; });
    QTEST(activity.islandBusy(), "busy");
    QTEST(activity.islandAnimating(), "animating");
}

void AppActivityTest::switchesArePresenceOnly_data()
{
    QTest::addColumn<QByteArray>("value"); // null: unset
    QTest::addColumn<bool>("on");
    QTest::newRow("unset") << QByteArray() << false;
    QTest::newRow("empty") << QByteArray("") << true;
    QTest::newRow("zero") << QByteArray("0") << true;
    QTest::newRow("one") << QByteArray("1") << true;
}

void AppActivityTest::switchesArePresenceOnly()
{
    QFETCH(QByteArray, value);
    for (const char *name : {"VAXO_NO_ANIM", "VAXO_ACTIVITY_DEBUG"}) {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    }
    const auto switches = AppActivity::Switches::fromEnvironment();
    qunsetenv("VAXO_NO_ANIM");
    qunsetenv("VAXO_ACTIVITY_DEBUG");
    QTEST(switches.forceOff, "on");
    QTEST(switches.debug, "on");
}

void AppActivityTest::summonTogglesBusy()
{
    AppActivity activity({}, {});
    QVERIFY(!activity.islandBusy());
    QSignalSpy busy(&activity, &AppActivity::islandBusyChanged);
    QSignalSpy gate(&activity, &AppActivity::islandAnimatingChanged);
    QSignalSpy summon(&activity, &AppActivity::summonShowingChanged);
    activity.setSummonShowing(true);
    activity.setSummonShowing(true);
    QVERIFY(activity.islandAnimating());
    activity.setSummonShowing(false);
    QCOMPARE(summon.count(), 2);
    QCOMPARE(busy.count(), 2);
    QCOMPARE(gate.count(), 2);
}

void AppActivityTest::displayNotifiesOnlyOnChange()
{
    auto *display = new DisplayStateSource;
    AppActivity activity({display, nullptr, nullptr}, {});
    activity.setSummonShowing(true);
    QSignalSpy usable(&activity, &AppActivity::displayUsableChanged);
    QSignalSpy gate(&activity, &AppActivity::islandAnimatingChanged);
    QSignalSpy returned(&activity, &AppActivity::displayReturned);
    emit display->displayLost();
    emit display->displayLost();
    QVERIFY(!activity.displayUsable());
    QVERIFY(!activity.islandAnimating());
    emit display->displayBack();
    emit display->displayBack(); // unlock after wake: no change, but the tier is due again
    QVERIFY(activity.islandAnimating());
    QCOMPARE(usable.count(), 2);
    QCOMPARE(gate.count(), 2);
    QCOMPARE(returned.count(), 2);
}

void AppActivityTest::lowPowerIsReadAtCreationAndOnChange()
{
    auto *power = new test::FakeLowPower;
    power->low = true;
    AppActivity activity({nullptr, power, nullptr}, {});
    QVERIFY(activity.lowPower());
    QSignalSpy spy(&activity, &AppActivity::lowPowerChanged);
    power->set(true);
    QCOMPARE(spy.count(), 0);
    power->set(false);
    QCOMPARE(spy.count(), 1);
    QVERIFY(!activity.lowPower());
}

void AppActivityTest::windowVisibleRule_data()
{
    QTest::addColumn<QList<Window>>("windows");
    QTest::addColumn<bool>("visible");
    const Window settings{true, false, true, true, 480, 360};
    auto with = [&](auto change) {
        Window w = settings;
        change(w);
        return w;
    };
    QTest::newRow("no windows") << QList<Window>{} << false;
    QTest::newRow("an ordinary window") << QList<Window>{settings} << true;
    QTest::newRow("hidden") << QList<Window>{with([](Window &w) { w.visible = false; })} << false;
    QTest::newRow("minimised") << QList<Window>{with([](Window &w) { w.minimised = true; })} << false;
    QTest::newRow("panel level") << QList<Window>{with([](Window &w) { w.normalLevel = false; })} << false;
    QTest::newRow("covered") << QList<Window>{with([](Window &w) { w.unoccluded = false; })} << false;
    QTest::newRow("200 wide") << QList<Window>{with([](Window &w) { w.width = 200; })} << false;
    QTest::newRow("200 tall") << QList<Window>{with([](Window &w) { w.height = 200; })} << false;
    QTest::newRow("one of several") << QList<Window>{with([](Window &w) { w.visible = false; }), settings} << true;
}

void AppActivityTest::windowVisibleRule()
{
    QFETCH(QList<Window>, windows);
    auto *source = new test::FakeWindows;
    source->list = windows;
    AppActivity activity({nullptr, nullptr, source}, {});
    QTEST(activity.windowVisible(), "visible");
    // Each change of the windows is read again, and published only when the answer changes.
    QSignalSpy spy(&activity, &AppActivity::windowVisibleChanged);
    source->set(windows);
    QCOMPARE(spy.count(), 0);
    source->set({});
    QVERIFY(!activity.windowVisible());
}

void AppActivityTest::debugLinesAreExact()
{
    auto *windows = new test::FakeWindows;
    AppActivity activity({nullptr, nullptr, windows}, {false, true});
    QTest::ignoreMessage(QtInfoMsg, "[activity] islandBusy=YES  expanded=NO pointer=YES pinned=NO settings=NO "
                                    "finished=YES agents=2 summon=NO");
    QTest::ignoreMessage(QtInfoMsg, "[activity] islandAnimating=YES");
    activity.followIsland([] { return IslandBusyInputs{false, true, false, false, true, 2}; });
    QTest::ignoreMessage(QtInfoMsg, "[activity] windowVisible=YES display=YES");
    windows->set({{true, false, true, true, 800, 600}});
}

QTEST_GUILESS_MAIN(AppActivityTest)
#include "AppActivityTest.moc"
