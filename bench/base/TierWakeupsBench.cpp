// Wake-ups per minute of the scheduler in each tier with the program's three jobs registered: timer
// firings (jobs and the tier watch) over ten simulated minutes, then, with "--real SECONDS", the main
// thread's real wake-ups (voluntary context switches) on Qt's coarse timers over that many seconds.
#include "FakeActivitySources.h"
#include "FakeClock.h"
#include "base/AppActivity.h"
#include "base/IslandScheduler.h"

#include "base/Clock.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include <cstdio>
#include <functional>

using namespace vaxo;

namespace {

struct Case {
    const char *label;
    double idleSeconds;
    bool lowPower;
    bool displayLost;
    double mediaActive; // 20 s, or 3 s while a track is known
};

// The calling thread's voluntary context switches so far: each is one sleep ended by a wake-up.
long long threadWakeups()
{
    QFile status(QStringLiteral("/proc/thread-self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("voluntary_ctxt_switches:"))
            return line.mid(line.indexOf(':') + 1).trimmed().toLongLong();
    }
    return 0;
}

void measure(const Case &c, Clock &clock, const std::function<void()> &run)
{
    auto *display = new DisplayStateSource;
    auto *power = new test::FakeLowPower;
    auto *idle = new test::FakeIdleTime;
    power->low = c.lowPower;
    idle->seconds = c.idleSeconds;
    AppActivity activity({display, power, nullptr}, {});
    IslandScheduler scheduler(clock, activity, idle);
    if (c.displayLost)
        emit display->displayLost();
    scheduler.schedule({QStringLiteral("island.clipboard"), 0.7, 3, {}, [] {}});
    scheduler.schedule({QStringLiteral("island.media"), c.mediaActive, 40, {}, [] {}});
    scheduler.schedule({QStringLiteral("island.fullscreen"), 10, 30, {}, [] {}});
    std::printf("%-34s tier=%-6s ", c.label, qPrintable(tierName(scheduler.tier())));
    run();
}

void simulated(const Case &c)
{
    test::FakeClock clock;
    measure(c, clock, [&] {
        constexpr double kMinutes = 10;
        const int before = clock.firings();
        clock.advance(kMinutes * 60);
        std::printf("%6.1f wake-ups/min simulated  (%d timers)\n", (clock.firings() - before) / kMinutes,
                    clock.activeTimers());
    });
}

void real(const Case &c, int seconds)
{
    measure(c, Clock::system(), [&] {
        const long long before = threadWakeups();
        QTimer::singleShot(seconds * 1000, QCoreApplication::instance(), &QCoreApplication::quit);
        QCoreApplication::exec();
        std::printf("%6.1f wake-ups/min real over %d s\n", (threadWakeups() - before) * 60.0 / seconds, seconds);
    });
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0); // each figure as soon as it is known, also into a pipe
    const Case cases[] = {
        {"at the keyboard", 0, false, false, 20}, {"at the keyboard, a track playing", 0, false, false, 3},
        {"low power", 0, true, false, 20},        {"no input for 2 minutes", 300, false, false, 20},
        {"screen locked", 0, false, true, 20},
    };
    for (const Case &c : cases)
        simulated(c);
    const QStringList args = app.arguments();
    const int seconds = args.size() == 3 && args.at(1) == QLatin1String("--real") ? args.at(2).toInt() : 0;
    if (seconds <= 0)
        return 0;
    for (const Case &c : cases)
        real(c, seconds);
    return 0;
}
