// Prints the time from a session file's rename to the first frame of the island that shows it (median
// and 95th percentile over 100 writes), on the program's own window and a real X server. The way runs
// through inotify, the 50 ms coalescing delay, the island state and the views.
#include "app/IslandAppDelegate.h"
#include "island/IslandController.h"
#include "island/IslandState.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QQuickView>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace vaxo;

namespace {

// A second session starts or stops working, so that the strip's words change at each write.
void write(const QString &sessions, int round)
{
    const QByteArray json =
        QStringLiteral(R"({"id":"s2","agent":"claude","label":"second","status":"%1","updated":%2})")
            .arg(round % 2 ? QStringLiteral("working") : QStringLiteral("done"))
            .arg(QDateTime::currentSecsSinceEpoch() + round)
            .toUtf8();
    QFile tmp(sessions + "/.s2.tmp");
    tmp.open(QIODevice::WriteOnly);
    tmp.write(json);
    tmp.close();
    std::rename(QFile::encodeName(tmp.fileName()).constData(), QFile::encodeName(sessions + "/s2.json").constData());
}

double percentile(std::vector<double> values, double p)
{
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, size_t(p * double(values.size())))];
}

} // namespace

int main(int argc, char **argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication app(argc, argv);
    QTemporaryDir root;
    const AppPaths paths = AppPaths::under(root.path());
    QDir().mkpath(paths.sessions());
    QFile first(paths.sessions() + "/s1.json");
    first.open(QIODevice::WriteOnly);
    first.write(R"({"id":"s1","agent":"claude","label":"first","status":"working"})");
    first.close();

    IslandAppDelegate delegate(paths);
    delegate.controller().start();
    QQuickView *panel = delegate.controller().panel();
    if (!panel || !QTest::qWaitForWindowExposed(panel)) {
        std::fprintf(stderr, "no window: run it on an X server\n");
        return 1;
    }
    QTest::qWait(500);

    QElapsedTimer clock;
    bool changed = false;
    double changedAt = -1, framedAt = -1;
    QObject::connect(&delegate.state(), &IslandState::agentsLabelChanged, [&] {
        changed = true;
        changedAt = double(clock.nsecsElapsed()) / 1e6;
    });
    QObject::connect(panel, &QQuickWindow::afterFrameEnd, [&] {
        if (changed && framedAt < 0)
            framedAt = double(clock.nsecsElapsed()) / 1e6;
    });

    std::vector<double> latencies, toState;
    for (int round = 1; round <= 100; ++round) {
        changed = false;
        framedAt = -1;
        clock.start();
        write(paths.sessions(), round);
        if (!QTest::qWaitFor([&] { return framedAt >= 0; }, 5000)) {
            std::fprintf(stderr, "round %d: no frame showed the change\n", round);
            return 1;
        }
        latencies.push_back(framedAt);
        toState.push_back(changedAt);
        QTest::qWait(100); // let the strip settle before the next write
    }
    std::printf("rename to frame: median %.1f ms, p95 %.1f ms (100 writes; target p95 under 80 ms)\n",
                percentile(latencies, 0.5), percentile(latencies, 0.95));
    std::printf("  of which rename to island state (50 ms coalescing included): median %.1f ms, p95 %.1f ms\n",
                percentile(toState, 0.5), percentile(toState, 0.95));
    return 0;
}
