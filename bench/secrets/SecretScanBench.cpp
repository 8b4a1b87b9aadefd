// Prints how long the secret scanner takes on 256 KiB of typical and of hostile text, next to the
// plain scan that runs every rule over the whole text, and whether both found the same. On some
// hostile texts the plain scan backtracks for minutes: it runs in a child process, stopped after 5 s.
#include "ScanInputs.h"

#include "secrets/SecretScanner.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

using vaxo::SecretScanner;

namespace {

using Findings = std::vector<vaxo::SecretFinding>;
constexpr int kPlainBudgetMs = 5000;

template <typename F> double medianMs(int runs, F f)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        const auto t0 = std::chrono::steady_clock::now();
        f();
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count());
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// Runs the plain scan in a child process that is stopped when it runs past the budget; gives its time
// in ms and whether it found what `fast` holds, or nothing when it was stopped.
std::optional<std::pair<double, bool>> plainScan(const std::u16string &text, const Findings &fast)
{
    int fds[2];
    if (pipe(fds) != 0)
        return std::nullopt;
    const pid_t child = fork();
    if (child == 0) {
        close(fds[0]);
        Findings plain;
        const double ms = medianMs(1, [&] { plain = SecretScanner::plainFindings(text); });
        const std::pair<double, bool> answer{ms, plain == fast};
        (void)!write(fds[1], &answer, sizeof answer);
        std::_Exit(0);
    }
    close(fds[1]);
    pollfd wait{fds[0], POLLIN, 0};
    std::optional<std::pair<double, bool>> answer;
    std::pair<double, bool> got;
    if (poll(&wait, 1, kPlainBudgetMs) == 1 && read(fds[0], &got, sizeof got) == sizeof got)
        answer = got;
    close(fds[0]);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return answer;
}

} // namespace

int main()
{
    SecretScanner::findings(u"warm up: password = hunter22"); // compile the table outside the timings
    std::printf("%-24s %9s %9s %10s %9s %s\n", "input (256 KiB)", "scan ms", "first ms", "plain ms", "findings",
                "same as plain");
    for (const auto &[name, text] : vaxo::bench::scanInputs(256 * 1024)) {
        Findings fast;
        const double firstMs = medianMs(1, [&] { fast = SecretScanner::findings(text); });
        const double fastMs = medianMs(21, [&] { fast = SecretScanner::findings(text); });
        const auto plain = plainScan(text, fast);
        if (plain)
            std::printf("%-24s %9.2f %9.2f %10.2f %9zu %s\n", name.c_str(), fastMs, firstMs, plain->first, fast.size(),
                        plain->second ? "yes" : "NO");
        else
            std::printf("%-24s %9.2f %9.2f %10s %9zu %s\n", name.c_str(), fastMs, firstMs, "> 5000", fast.size(),
                        "(plain scan stopped)");
    }
    return 0;
}
