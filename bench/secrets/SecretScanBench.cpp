// Prints how long the secret scanner takes on 256 KiB of typical and of hostile text, next to the
// plain scan that runs every rule over the whole text, and whether both found the same.
#include "ScanInputs.h"

#include "secrets/SecretScanner.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

using vaxo::SecretScanner;

namespace {

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

} // namespace

int main()
{
    SecretScanner::findings(u"warm up: password = hunter22"); // compile the table outside the timings
    std::printf("%-24s %10s %10s %9s %s\n", "input (256 KiB)", "scan ms", "plain ms", "findings", "same");
    for (const auto &[name, text] : vaxo::bench::scanInputs(256 * 1024)) {
        std::vector<vaxo::SecretFinding> fast, plain;
        const double fastMs = medianMs(21, [&] { fast = SecretScanner::findings(text); });
        const double plainMs = medianMs(3, [&] { plain = SecretScanner::plainFindings(text); });
        std::printf("%-24s %10.2f %10.2f %9zu %s\n", name.c_str(), fastMs, plainMs, fast.size(),
                    fast == plain ? "yes" : "NO");
    }
    return 0;
}
