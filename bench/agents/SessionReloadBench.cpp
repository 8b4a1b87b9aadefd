// Prints how long a reload of the sessions folder takes per file (1, 100 and 1000 sessions), and
// the latency from a session file's rename to the delivered list (median and 95th percentile over
// 200 events at 100 sessions), which includes the 50 ms coalescing delay.
#include "agents/LocalHookSource.h"
#include "agents/SessionDirectory.h"
#include "base/Clock.h"
#include "platform/PlatformServices.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>

using namespace vaxo;

namespace {

void writeSession(const QString &dir, int i, const QString &status, double updated)
{
    const QString name = QStringLiteral("s%1").arg(i);
    const QByteArray json = QStringLiteral(R"({"id":"%1","agent":"claude","label":"project-%1","status":"%2",)"
                                           R"("started":%3,"updated":%3,"last_prompt":"Refactor the parser and )"
                                           R"(add tests","last_action":"Edit src/parser.cpp","cwd":"/home/u/p",)"
                                           R"("tty":"/dev/pts/4","tasks":null,"waiting_for":null,"ask_id":null})")
                                .arg(name, status)
                                .arg(updated, 0, 'f', 3)
                                .toUtf8();
    QFile tmp(dir + "/." + name + ".tmp");
    tmp.open(QIODevice::WriteOnly);
    tmp.write(json);
    tmp.close();
    std::rename(QFile::encodeName(tmp.fileName()).constData(),
                QFile::encodeName(dir + "/" + name + ".json").constData());
}

double percentile(std::vector<double> values, double p)
{
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, size_t(p * double(values.size())))];
}

void reloadCost(int count)
{
    QTemporaryDir tmp;
    for (int i = 0; i < count; ++i)
        writeSession(tmp.path(), i, QStringLiteral("working"), Clock::system().now());
    const int rounds = std::max(5, 20000 / count);
    // A first reload decodes every file; later ones decode only what changed since.
    QElapsedTimer timer;
    timer.start();
    for (int r = 0; r < rounds; ++r)
        SessionDirectory(tmp.path()).load(Clock::system().now());
    const double coldMs = double(timer.nsecsElapsed()) / 1e6 / rounds;
    SessionDirectory warm(tmp.path());
    warm.load(Clock::system().now());
    qint64 warmNs = 0;
    for (int r = 0; r < rounds; ++r) {
        writeSession(tmp.path(), r % count, QStringLiteral("working"), Clock::system().now());
        timer.restart();
        warm.load(Clock::system().now());
        warmNs += timer.nsecsElapsed();
    }
    const double warmMs = double(warmNs) / 1e6 / rounds;
    std::printf("reload %5d sessions: every file decoded %8.3f ms (%6.2f us per file); "
                "after one hook write %8.3f ms (%6.2f us per file)\n",
                count, coldMs, coldMs * 1000.0 / count, warmMs, warmMs * 1000.0 / count);
}

void renameLatency(int sessions, int events)
{
    QTemporaryDir tmp;
    for (int i = 0; i < sessions; ++i)
        writeSession(tmp.path(), i, QStringLiteral("working"), Clock::system().now());
    LocalHookSource source(tmp.path(), Clock::system(), PlatformServices::newFolderWatcher());
    QEventLoop loop;
    QTimer giveUp;
    giveUp.setSingleShot(true);
    QObject::connect(&giveUp, &QTimer::timeout, &loop, &QEventLoop::quit);
    QElapsedTimer sinceRename;
    bool delivered = false;
    source.start([&](const QList<AgentSession> &) {
        delivered = true;
        loop.quit();
    });
    std::vector<double> latencies;
    for (int e = 0; e < events; ++e) {
        delivered = false;
        // Every event changes one session's status, so every event changes the list.
        writeSession(tmp.path(), e % sessions, e % 2 ? QStringLiteral("working") : QStringLiteral("waiting"),
                     Clock::system().now());
        sinceRename.start();
        giveUp.start(2000);
        while (!delivered && giveUp.isActive())
            loop.exec();
        if (delivered)
            latencies.push_back(double(sinceRename.nsecsElapsed()) / 1e6);
    }
    std::printf("rename to state at %d sessions over %zu of %d events: median %.2f ms, p95 %.2f ms "
                "(coalescing delay %.0f ms included)\n",
                sessions, latencies.size(), events, percentile(latencies, 0.5), percentile(latencies, 0.95),
                LocalHookSource::kCoalesceDelay * 1000);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    for (int count : {1, 100, 1000})
        reloadCost(count);
    renameLatency(100, 200);
    return 0;
}
