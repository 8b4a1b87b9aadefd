#include "app/IslandScheduler.h"
#include "FakeActivitySources.h"
#include "FakeClock.h"
#include "app/AppActivity.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace vaxo;

namespace {

// A gate and a scheduler over fake sources and a fake clock, with counters for each job's runs.
struct Rig {
    test::FakeClock clock;
    DisplayStateSource *display = new DisplayStateSource;
    test::FakeLowPower *power = new test::FakeLowPower;
    test::FakeIdleTime *idle = new test::FakeIdleTime;
    AppActivity activity{{display, power, nullptr}, {}};
    IslandScheduler scheduler{clock, activity, idle};
    QMap<QString, int> runs;

    Job job(const QString &name, double active, std::optional<double> idleInterval = {},
            std::optional<double> away = {})
    {
        return {name, active, idleInterval, away, [this, name] { ++runs[name]; }};
    }
    // The program's three jobs.
    void scheduleAll()
    {
        scheduler.schedule(job("island.clipboard", 0.7, 3));
        scheduler.schedule(job("island.media", 20, 40));
        scheduler.schedule(job("island.fullscreen", 10, 30));
    }
};

} // namespace

class IslandSchedulerTest : public QObject {
    Q_OBJECT
private slots:
    void tierNames();
    void tierRule_data();
    void tierRule();
    void idleRunsTheClipboardEveryThreeSeconds();
    void awayLeavesOnlyTheWatch();
    void returnToActiveRunsEachJobAtOnce();
    void rescheduleKeepsAnUnchangedTimer();
    void lastUnregisterStopsTheWatch();
    void sameNameReplacesTheJob();
    void jobMayUnregisterItself();
    void debugLogsTierChanges();
};

void IslandSchedulerTest::tierNames()
{
    for (Tier tier : {Tier::Active, Tier::Idle, Tier::Away})
        QCOMPARE(parseTier(tierName(tier)), tier);
    QCOMPARE(tierName(Tier::Away), QStringLiteral("away"));
    QVERIFY(!parseTier(QStringLiteral("Active")));
    QVERIFY(!parseTier(QString()));
}

void IslandSchedulerTest::tierRule_data()
{
    QTest::addColumn<bool>("displayLost");
    QTest::addColumn<double>("idleSeconds");
    QTest::addColumn<bool>("lowPower");
    QTest::addColumn<QString>("tier");
    QTest::addColumn<bool>("userIdle");
    QTest::newRow("at the keyboard") << false << 5.0 << false << "active" << false;
    QTest::newRow("just under the threshold") << false << 119.9 << false << "active" << false;
    QTest::newRow("at the threshold") << false << 120.0 << false << "idle" << true;
    QTest::newRow("low power at the keyboard") << false << 0.0 << true << "idle" << false;
    QTest::newRow("locked with recent input") << true << 1.0 << false << "away" << false;
    QTest::newRow("locked and idle") << true << 600.0 << true << "away" << true;
}

void IslandSchedulerTest::tierRule()
{
    QFETCH(bool, displayLost);
    QFETCH(double, idleSeconds);
    QFETCH(bool, lowPower);
    Rig rig;
    rig.idle->seconds = idleSeconds;
    rig.power->set(lowPower);
    if (displayLost)
        emit rig.display->displayLost();
    rig.scheduler.reevaluateTier();
    QTEST(tierName(rig.scheduler.tier()), "tier");
    QTEST(rig.scheduler.userIdle(), "userIdle");
}

void IslandSchedulerTest::idleRunsTheClipboardEveryThreeSeconds()
{
    Rig rig;
    rig.idle->seconds = 200;
    rig.scheduleAll(); // the watch's first evaluation already finds the user idle
    QCOMPARE(rig.scheduler.tier(), Tier::Idle);
    rig.clock.advance(30.01);
    QCOMPARE(rig.runs.value("island.clipboard"), 10);
    QCOMPARE(rig.runs.value("island.fullscreen"), 1);
    QCOMPARE(rig.runs.value("island.media"), 0);
}

void IslandSchedulerTest::awayLeavesOnlyTheWatch()
{
    Rig rig;
    rig.scheduleAll();
    QCOMPARE(rig.clock.activeTimers(), 4);
    emit rig.display->displayLost();
    QCOMPARE(rig.scheduler.tier(), Tier::Away);
    QCOMPARE(rig.clock.activeTimers(), 1);
    const int before = rig.clock.firings();
    rig.clock.advance(60.01);
    QCOMPARE(rig.clock.firings() - before, 2);
    QVERIFY(rig.runs.isEmpty());
}

void IslandSchedulerTest::returnToActiveRunsEachJobAtOnce()
{
    Rig rig;
    rig.idle->seconds = 500;
    rig.scheduleAll();
    QCOMPARE(rig.scheduler.tier(), Tier::Idle);
    QSignalSpy idleSpy(&rig.scheduler, &IslandScheduler::userIdleChanged);

    rig.idle->seconds = 0;
    rig.scheduler.reevaluateTier();
    QCOMPARE(rig.scheduler.tier(), Tier::Active);
    QCOMPARE(idleSpy.count(), 1);
    const QMap<QString, int> once{{"island.clipboard", 1}, {"island.media", 1}, {"island.fullscreen", 1}};
    QCOMPARE(rig.runs, once);
    // Then at the active intervals, counted from the return.
    rig.clock.advance(0.69);
    QCOMPARE(rig.runs.value("island.clipboard"), 1);
    rig.clock.advance(0.02);
    QCOMPARE(rig.runs.value("island.clipboard"), 2);
}

void IslandSchedulerTest::rescheduleKeepsAnUnchangedTimer()
{
    Rig rig;
    rig.scheduler.schedule(rig.job("island.media", 20, 40));
    rig.clock.advance(15);
    rig.scheduler.reschedule("island.media", 20);
    rig.clock.advance(5.01);
    QCOMPARE(rig.runs.value("island.media"), 1);

    rig.clock.advance(15);
    rig.scheduler.reschedule("island.media", 3); // restarts from now
    rig.clock.advance(2.99);
    QCOMPARE(rig.runs.value("island.media"), 1);
    rig.clock.advance(0.02);
    QCOMPARE(rig.runs.value("island.media"), 2);

    rig.scheduler.reschedule("island.nothing", 1);
    QVERIFY(!rig.scheduler.hasJob("island.nothing"));
}

void IslandSchedulerTest::lastUnregisterStopsTheWatch()
{
    Rig rig;
    rig.scheduler.schedule(rig.job("island.clipboard", 0.7, 3));
    rig.scheduler.schedule(rig.job("island.fullscreen", 10, 30));
    rig.scheduler.unregister("island.clipboard");
    QCOMPARE(rig.clock.activeTimers(), 2);
    rig.scheduler.unregister("island.fullscreen");
    QCOMPARE(rig.clock.activeTimers(), 0);

    // A new job starts a new watch, which evaluates the tier at once.
    rig.idle->seconds = 300;
    QSignalSpy tierSpy(&rig.scheduler, &IslandScheduler::tierChanged);
    rig.scheduler.schedule(rig.job("island.clipboard", 0.7, 3));
    QCOMPARE(tierSpy.count(), 1);
    QCOMPARE(rig.clock.activeTimers(), 2);
}

void IslandSchedulerTest::sameNameReplacesTheJob()
{
    Rig rig;
    int oldRuns = 0;
    rig.scheduler.schedule({"island.clipboard", 0.7, 3, {}, [&] { ++oldRuns; }});
    rig.scheduler.schedule(rig.job("island.clipboard", 2));
    QCOMPARE(rig.clock.activeTimers(), 2);
    rig.clock.advance(2.01);
    QCOMPARE(oldRuns, 0);
    QCOMPARE(rig.runs.value("island.clipboard"), 1);
}

void IslandSchedulerTest::jobMayUnregisterItself()
{
    Rig rig;
    rig.scheduler.schedule({"island.once", 1, {}, {}, [&] { rig.scheduler.unregister("island.once"); }});
    rig.clock.advance(5);
    QCOMPARE(rig.clock.activeTimers(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void IslandSchedulerTest::debugLogsTierChanges()
{
    test::FakeClock clock;
    auto *display = new DisplayStateSource;
    AppActivity activity({display, nullptr, nullptr}, {false, true});
    IslandScheduler scheduler(clock, activity, nullptr);
    QTest::ignoreMessage(QtInfoMsg, "[scheduler] tier=away");
    emit display->displayLost();
    QTest::ignoreMessage(QtInfoMsg, "[scheduler] tier=active");
    emit display->displayBack();
}

QTEST_GUILESS_MAIN(IslandSchedulerTest)
#include "IslandSchedulerTest.moc"
