// What finding a session's terminal costs: the scan of /proc for the process that holds a tty's master
// side (this benchmark holds one itself) and for the processes on the tty, medians of 20, beside the
// number of processes and descriptors scanned; then the main thread's share of a focus request, which
// only hands the work to the focus thread.
#include "platform/linux/LinuxTerminalFocus.h"
#include "platform/linux/ProcTerminals.h"

#include <QDir>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <stdlib.h>
#include <unistd.h>

using namespace vaxo;
using namespace vaxo::linux_platform;

namespace {

double medianMs(const std::function<void()> &work, int runs = 20)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main()
{
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
        std::fprintf(stderr, "no pseudo-terminal\n");
        return 1;
    }
    const QString tty = QString::fromLocal8Bit(ptsname(master));
    const int pts = tty.section(QLatin1Char('/'), -1).toInt();

    int processes = 0, descriptors = 0;
    for (const QString &pid : QDir("/proc").entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (pid.toInt() > 0) {
            ++processes;
            descriptors += int(QDir("/proc/" + pid + "/fd").entryList(QDir::System | QDir::NoDotAndDotDot).size());
        }
    std::optional<qint64> holder;
    const double holderMs = medianMs([&] { holder = ProcTerminals::masterHolder(pts); });
    const double onTtyMs = medianMs([&] { ProcTerminals::processesOn(pts); });
    std::printf("processes scanned            %d (%d descriptors readable)\n", processes, descriptors);
    std::printf("master holder of %-12s %.2f ms (found %s)\n", qPrintable(tty), holderMs,
                holder == getpid() ? "this process" : "another process");
    std::printf("processes on the tty         %.2f ms\n", onTtyMs);

    // Nobody draws the tty: the focus thread finds no window to ask for.
    LinuxTerminalFocus focus([](const QList<qint64> &) { return false; });
    const double postMs = medianMs([&] { focus.focus(tty); });
    std::printf("main thread per focus        %.1f us\n", postMs * 1000);
    close(master);
    return 0;
}
