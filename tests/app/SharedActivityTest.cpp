#include "FakeActivitySources.h"
#include "app/AppActivity.h"
#include "app/IslandScheduler.h"
#include "platform/ActivityPlatform.h"

#include <QTest>

using namespace vaxo;

namespace {

// Counts what the shared objects ask the installed platform for.
class CountingPlatform final : public ActivityPlatform {
public:
    int made = 0;
    IdleTimeSource *createIdleTimeSource(QObject *parent) override
    {
        ++made;
        auto *idle = new test::FakeIdleTime;
        idle->setParent(parent);
        idle->seconds = 600;
        return idle;
    }
    DisplayStateSource *createDisplayStateSource(QObject *) override
    {
        ++made;
        return nullptr;
    }
    LowPowerSource *createLowPowerSource(QObject *parent) override
    {
        ++made;
        auto *power = new test::FakeLowPower;
        power->setParent(parent);
        power->low = true;
        return power;
    }
    WindowVisibilitySource *createWindowVisibilitySource(QObject *) override
    {
        ++made;
        return nullptr;
    }
};

} // namespace

// The shared gate and scheduler build themselves from the installed platform on first use, once.
class SharedActivityTest : public QObject {
    Q_OBJECT
private slots:
    void builtOnFirstUseFromTheInstalledPlatform();
};

void SharedActivityTest::builtOnFirstUseFromTheInstalledPlatform()
{
    qputenv("VAXO_NO_ANIM", "0");
    auto platform = std::make_unique<CountingPlatform>();
    CountingPlatform &counting = *platform;
    ActivityPlatform::install(std::move(platform));
    QCOMPARE(counting.made, 0);

    IslandScheduler &scheduler = IslandScheduler::shared();
    QCOMPARE(counting.made, 4);
    QCOMPARE(&IslandScheduler::shared(), &scheduler);
    QCOMPARE(&AppActivity::shared(), &AppActivity::shared());
    QCOMPARE(counting.made, 4);

    QVERIFY(AppActivity::shared().lowPower());
    AppActivity::shared().setSummonShowing(true);
    QVERIFY(!AppActivity::shared().islandAnimating()); // VAXO_NO_ANIM, even "0"
    scheduler.schedule({QStringLiteral("island.fullscreen"), 10, 30, {}, [] {}});
    QCOMPARE(scheduler.tier(), Tier::Idle);
    QVERIFY(scheduler.userIdle());
    scheduler.unregister(QStringLiteral("island.fullscreen"));
}

QTEST_GUILESS_MAIN(SharedActivityTest)
#include "SharedActivityTest.moc"
