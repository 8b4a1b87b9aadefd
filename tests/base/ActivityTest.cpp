#include "FakeActivitySources.h"
#include "FakeClock.h"
#include "base/AppActivity.h"
#include "base/IslandScheduler.h"

#include <QSignalSpy>
#include <QTest>

using namespace vaxo;
using Window = WindowVisibilitySource::Window;
Q_DECLARE_METATYPE(vaxo::IslandBusyInputs)
Q_DECLARE_METATYPE(QList<Window>)

namespace {

// The gate and the scheduler over fake sources and a fake clock, counting each job's runs.
struct Rig {
    test::FakeClock clock;
    DisplayStateSource *display = new DisplayStateSource;
    test::FakeLowPower *power = new test::FakeLowPower;
    test::FakeIdleTime *idle = new test::FakeIdleTime;
    AppActivity activity;
    IslandScheduler scheduler{clock, activity, idle};
    QMap<QString, int> runs;
    explicit Rig(AppActivity::Switches switches = {}) : activity({display, power, nullptr}, switches) {}

    Job job(const QString &name, double active, std::optional<double> idle = {})
    {
        return {name, active, idle, {}, [this, name] { ++runs[name]; }};
    }
    void scheduleAll() // the program's three jobs
    {
        scheduler.schedule(job("island.clipboard", 0.7, 3));
        scheduler.schedule(job("island.media", 20, 40));
        scheduler.schedule(job("island.fullscreen", 10, 30));
    }
};

} // namespace

class ActivityTest : public QObject {
    Q_OBJECT
private slots:
    void gate_data()
    {
        QTest::addColumn<IslandBusyInputs>("island");
        QTest::addColumn<bool>("summon");
        QTest::addColumn<QString>("off"); // what else holds the gate shut
        QTest::addColumn<bool>("busy");
        QTest::addColumn<bool>("animating");
        const IslandBusyInputs rest, waiting{false, false, false, false, false, 1};
        QTest::newRow("at rest") << rest << false << "" << false << false;
        QTest::newRow("expanded") << IslandBusyInputs{true} << false << "" << true << true;
        QTest::newRow("pointer inside") << IslandBusyInputs{false, true} << false << "" << true << true;
        QTest::newRow("pinned") << IslandBusyInputs{false, false, true} << false << "" << true << true;
        QTest::newRow("settings") << IslandBusyInputs{false, false, false, true} << false << "" << true << true;
        QTest::newRow("finished") << IslandBusyInputs{false, false, false, false, true} << false << "" << true << true;
        QTest::newRow("agent working") << waiting << false << "" << true << true;
        QTest::newRow("summoned") << rest << true << "" << true << true;
        QTest::newRow("VAXO_NO_ANIM=0") << waiting << true << "VAXO_NO_ANIM" << true << false;
        QTest::newRow("display lost") << waiting << true << "display" << true << false;
        QTest::newRow("low power") << waiting << true << "power" << true << false;
    }
    void gate()
    {
        QFETCH(IslandBusyInputs, island);
        QFETCH(QString, off);
        qputenv("VAXO_NO_ANIM", "0"); // present, whatever its value
        const AppActivity::Switches switches =
            off == "VAXO_NO_ANIM" ? AppActivity::Switches::fromEnvironment() : AppActivity::Switches{};
        qunsetenv("VAXO_NO_ANIM");
        Rig rig(switches);
        QSignalSpy gate(&rig.activity, &AppActivity::islandAnimatingChanged);
        QSignalSpy usable(&rig.activity, &AppActivity::displayUsableChanged);
        QSignalSpy returned(&rig.activity, &AppActivity::displayReturned);
        rig.power->set(off == "power");
        if (off == "display") {
            emit rig.display->displayLost();
            emit rig.display->displayLost();
        }
        rig.activity.followIsland([island] { return island; });
        QFETCH(bool, summon);
        rig.activity.setSummonShowing(summon);
        QTEST(rig.activity.islandBusy(), "busy");
        QTEST(rig.activity.islandAnimating(), "animating");
        QCOMPARE(gate.count(), rig.activity.islandAnimating() ? 1 : 0);
        // The display coming back reopens the gate, and makes the tier due again even when it was not lost.
        emit rig.display->displayBack();
        emit rig.display->displayBack();
        QVERIFY(rig.activity.displayUsable());
        QCOMPARE(usable.count(), off == "display" ? 2 : 0);
        QCOMPARE(returned.count(), 2);
    }
    void windowVisibleRule_data()
    {
        QTest::addColumn<QList<Window>>("windows");
        QTest::addColumn<bool>("visible");
        const Window ok{true, false, true, true, 480, 360};
        QTest::newRow("ordinary") << QList<Window>{ok} << true;
        QTest::newRow("minimised") << QList<Window>{{true, true, true, true, 480, 360}} << false;
        QTest::newRow("covered") << QList<Window>{{true, false, true, false, 480, 360}} << false;
        QTest::newRow("200 wide") << QList<Window>{{true, false, true, true, 200, 360}} << false;
        QTest::newRow("200 tall") << QList<Window>{{true, false, true, true, 480, 200}} << false;
        QTest::newRow("one of several") << QList<Window>{{}, ok} << true;
    }
    void windowVisibleRule()
    {
        QFETCH(QList<Window>, windows);
        auto *source = new test::FakeWindows;
        AppActivity activity({nullptr, nullptr, source}, {});
        QSignalSpy spy(&activity, &AppActivity::windowVisibleChanged);
        source->set(windows);
        source->set(windows);
        QTEST(activity.windowVisible(), "visible");
        QCOMPARE(spy.count(), activity.windowVisible() ? 1 : 0);
    }
    void tierRule_data()
    {
        QTest::addColumn<bool>("displayLost"); // the display cannot be seen
        QTest::addColumn<double>("idleSeconds");
        QTest::addColumn<bool>("lowPower");
        QTest::addColumn<bool>("returns"); // then the user is back at the keyboard
        QTest::addColumn<QString>("tier");
        QTest::addColumn<bool>("userIdle");
        QTest::addColumn<int>("timers");      // the tier watch and one per job that runs in the tier
        QTest::addColumn<QList<int>>("runs"); // clipboard, media, fullscreen in the next 30 s
        QTest::newRow("at keyboard") << false << 119.9 << false << false << "active" << false << 4 << QList{42, 1, 3};
        QTest::newRow("2 min idle") << false << 120.0 << false << false << "idle" << true << 4 << QList{10, 0, 1};
        QTest::newRow("low power") << false << 0.0 << true << false << "idle" << false << 4 << QList{10, 0, 1};
        QTest::newRow("unseen") << true << 1.0 << false << false << "away" << false << 1 << QList{0, 0, 0};
        QTest::newRow("unseen, idle") << true << 600.0 << true << false << "away" << true << 1 << QList{0, 0, 0};
        // Each job runs once at once, then at its active interval counted from the return.
        QTest::newRow("back from idle") << false << 500.0 << true << true << "active" << false << 4 << QList{43, 2, 4};
        QTest::newRow("back from away") << true << 500.0 << false << true << "active" << false << 4 << QList{43, 2, 4};
    }
    void tierRule()
    {
        QFETCH(bool, displayLost);
        if (displayLost) { // VAXO_ACTIVITY_DEBUG's lines
            QTest::ignoreMessage(QtInfoMsg, "[activity] islandBusy=NO  expanded=NO pointer=NO pinned=NO settings=NO "
                                            "finished=NO agents=0 summon=NO");
            QTest::ignoreMessage(QtInfoMsg, "[activity] islandAnimating=NO");
            QTest::ignoreMessage(QtInfoMsg, "[scheduler] tier=away");
        }
        Rig rig({false, displayLost});
        QFETCH(double, idleSeconds);
        rig.idle->seconds = idleSeconds;
        QFETCH(bool, lowPower);
        rig.power->set(lowPower);
        rig.scheduleAll();
        if (displayLost)
            emit rig.display->displayLost();
        QFETCH(bool, returns);
        if (returns) {
            rig.idle->seconds = 0;
            rig.power->set(false);
            emit rig.display->displayBack();
            rig.scheduler.reevaluateTier();
        }
        QTEST(tierName(rig.scheduler.tier()), "tier");
        QCOMPARE(parseTier(tierName(rig.scheduler.tier())), rig.scheduler.tier());
        QTEST(rig.scheduler.userIdle(), "userIdle");
        QTEST(rig.clock.activeTimers(), "timers");
        rig.clock.advance(30.01);
        QTEST((QList{rig.runs.value("island.clipboard"), rig.runs.value("island.media"),
                     rig.runs.value("island.fullscreen")}),
              "runs");
    }
    void jobsReplaceRescheduleAndUnregister()
    {
        Rig rig;
        int oldRuns = 0;
        rig.scheduler.schedule({"island.media", 0.7, 3, {}, [&] { ++oldRuns; }});
        rig.scheduler.schedule(rig.job("island.media", 20, 40)); // same name: replaces
        QCOMPARE(rig.clock.activeTimers(), 2);
        rig.clock.advance(15);
        rig.scheduler.reschedule("island.media", 20); // unchanged: the timer keeps running
        rig.clock.advance(5.01);
        QCOMPARE(rig.runs.value("island.media"), 1);
        QCOMPARE(oldRuns, 0);
        rig.scheduler.reschedule("island.media", 3); // changed: restarts from now
        rig.clock.advance(2.99);
        QCOMPARE(rig.runs.value("island.media"), 1);
        rig.clock.advance(0.02);
        QCOMPARE(rig.runs.value("island.media"), 2);

        // A job may drop itself; the last one gone stops the watch too.
        rig.scheduler.schedule({"island.once", 1, {}, {}, [&] { rig.scheduler.unregister("island.once"); }});
        rig.scheduler.unregister("island.media");
        QCOMPARE(rig.clock.activeTimers(), 2);
        rig.clock.advance(5);
        QCOMPARE(rig.clock.activeTimers(), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // A new job starts a new watch, which evaluates the tier at once.
        rig.idle->seconds = 300;
        rig.scheduler.schedule(rig.job("island.clipboard", 0.7, 3));
        QCOMPARE(rig.scheduler.tier(), Tier::Idle);
        QCOMPARE(rig.clock.activeTimers(), 2);
    }
};

QTEST_GUILESS_MAIN(ActivityTest)
#include "ActivityTest.moc"
