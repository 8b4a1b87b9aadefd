#include "FakeActivitySources.h"
#include "app/AppActivity.h"
#include "app/IslandScheduler.h"
#include "platform/ActivityPlatform.h"

#include <QTest>

using namespace vaxo;

namespace {

// Counts what the shared objects ask the installed platform for; it has only a low-power source.
class CountingPlatform final : public ActivityPlatform {
public:
    int made = 0;
    IdleTimeSource *createIdleTimeSource(QObject *) override { return none<IdleTimeSource>(); }
    DisplayStateSource *createDisplayStateSource(QObject *) override { return none<DisplayStateSource>(); }
    WindowVisibilitySource *createWindowVisibilitySource(QObject *) override { return none<WindowVisibilitySource>(); }
    LowPowerSource *createLowPowerSource(QObject *parent) override
    {
        ++made;
        auto *power = new test::FakeLowPower;
        power->setParent(parent);
        power->low = true;
        return power;
    }

private:
    template <typename T> T *none()
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
}

QTEST_GUILESS_MAIN(SharedActivityTest)
#include "SharedActivityTest.moc"
