// The main thread's share of one now-playing poll with three real MPRIS players (mpv) on a private bus:
// the refresh() call itself, the main thread's processor time for the whole poll (the call and the
// handling of every answer), and the time until the answer is published; medians of 100. Then, with
// one player frozen (it keeps its bus name and answers nothing), the longest the main thread was kept
// from its event loop, seen by a 1 ms timer, while polls waited for that player.
#include "FakeClock.h"
#include "PrivatePlayers.h"
#include "TempHome.h"
#include "base/AppActivity.h"
#include "base/Clock.h"
#include "base/IslandScheduler.h"
#include "base/IslandSettings.h"
#include "media/IslandMedia.h"
#include "platform/linux/MprisMediaPlayers.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

using namespace vaxo;

namespace {

// The real players, with a flag raised when a read has been answered.
class ObservedPlayers final : public MediaPlayers {
public:
    explicit ObservedPlayers(MediaPlayers &real) : m_real(real) {}
    bool answered = false;

    bool anyPlayerRunning() const override { return m_real.anyPlayerRunning(); }
    bool hasSystemSource() const override { return m_real.hasSystemSource(); }
    void readSystem(std::function<void(SystemReply)> done) override { m_real.readSystem(std::move(done)); }
    void readPlayers(Reply done) override
    {
        m_real.readPlayers([this, done](const std::optional<NowPlaying> &record) {
            done(record);
            answered = true;
        });
    }
    bool controlsDirectly(const NowPlaying &record) const override { return m_real.controlsDirectly(record); }
    void send(const NowPlaying &record, MediaCommand command, std::function<void()> done) override
    {
        m_real.send(record, command, std::move(done));
    }
    void postMediaKey(MediaCommand command) override { m_real.postMediaKey(command); }
    bool mediaKeysNeedPermission() const override { return m_real.mediaKeysNeedPermission(); }
    bool accessibilityTrusted(bool prompt) override { return m_real.accessibilityTrusted(prompt); }
    void openAccessibilitySettings() override { m_real.openAccessibilitySettings(); }

private:
    MediaPlayers &m_real;
};

double threadMs()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values.at(values.size() / 2);
}

bool waitFor(const std::function<bool()> &condition, int ms)
{
    QElapsedTimer timer;
    timer.start();
    for (;;) {
        if (condition())
            return true;
        if (timer.elapsed() >= ms)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    test::PrivatePlayers peers;
    if (!peers.ready()) {
        std::fprintf(stderr, "no private bus or no tone (dbus-daemon, sox)\n");
        return 1;
    }
    QList<QProcess *> mpvs;
    for (int i = 0; i < 3; ++i)
        mpvs << peers.startMpv();
    const QDBusConnection bus = QDBusConnection::connectToBus(peers.address(), QStringLiteral("bench"));
    linux_platform::MprisMediaPlayers mpris(bus, Clock::system());
    ObservedPlayers players(mpris);

    test::TempHome home;
    test::FakeClock fake;
    AppActivity activity({}, {});
    IslandScheduler scheduler(fake, activity, nullptr);
    IslandSettings settings(home.paths().settingsFile());
    IslandMedia media(players, scheduler, settings, home.paths(), Clock::system(), {});
    const auto poll = [&] {
        players.answered = false;
        media.refresh();
        return waitFor([&] { return players.answered; }, 10000);
    };
    if (!waitFor([&] { return mpris.names().size() == 3; }, 30000) ||
        !waitFor([&] { return poll() && media.now() && media.now()->duration; }, 30000)) {
        std::fprintf(stderr, "the players did not come up\n");
        return 1;
    }

    QList<double> call, cpu, answer;
    for (int i = 0; i < 100; ++i) {
        QElapsedTimer wall;
        const double cpu0 = threadMs();
        wall.start();
        players.answered = false;
        media.refresh();
        call << double(wall.nsecsElapsed()) / 1e6;
        waitFor([&] { return players.answered; }, 10000);
        answer << double(wall.nsecsElapsed()) / 1e6;
        cpu << threadMs() - cpu0;
    }
    std::printf("three players, median of 100 polls:\n");
    std::printf("  refresh() call on the main thread      %7.3f ms\n", median(call));
    std::printf("  main thread's processor time per poll  %7.3f ms\n", median(cpu));
    std::printf("  refresh() to the published answer      %7.3f ms\n", median(answer));

    test::PrivatePlayers::freeze(*mpvs.last(), true);
    double longest = 0, slowest = 0;
    QElapsedTimer sinceTick;
    QTimer ticker;
    ticker.setTimerType(Qt::PreciseTimer);
    QObject::connect(&ticker, &QTimer::timeout, [&] {
        longest = std::max(longest, double(sinceTick.nsecsElapsed()) / 1e6);
        sinceTick.restart();
    });
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer wall;
        wall.start();
        sinceTick.start();
        ticker.start(1);
        poll();
        ticker.stop();
        slowest = std::max(slowest, double(wall.nsecsElapsed()) / 1e6);
    }
    std::printf("one of three players frozen, 5 polls:\n");
    std::printf("  longest gap between 1 ms ticks         %7.3f ms\n", longest);
    std::printf("  slowest poll to its answer             %7.1f ms (the per-call limit is %d ms)\n", slowest,
                linux_platform::MprisPlayerList::kCallTimeoutMs);
    std::printf("  the playing players still published    %7s\n", media.now() ? "yes" : "no");
    return 0;
}
