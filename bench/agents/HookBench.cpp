// Claude Code runs the hook in line, on every tool call: this prints what one invocation costs
// (bash plus the reporter), per event, as the median of 50 runs, beside a bare start of the
// interpreter measured in the same rounds.
#include "ReporterWaitCost.h"
#include "agents/AskDecision.h"
#include "agents/HookInstaller.h"
#include "base/AppPaths.h"
#include "base/Clock.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <QList>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <vector>

namespace {

struct Case {
    QByteArray label;
    QList<QByteArray> argv;
    QByteArray payload;
    QString answerId; // answered before each run, so the wait ends at its first look
    std::vector<double> millis = {};
};

// Runs argv with stdin from a file and both outputs discarded; returns the wall time in ms.
double timeRun(const QList<QByteArray> &argv, const QByteArray &stdinPath, char **env)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, stdinPath.constData(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    std::vector<char *> args;
    for (const QByteArray &a : argv)
        args.push_back(const_cast<char *>(a.constData()));
    args.push_back(nullptr);
    QElapsedTimer timer;
    timer.start();
    pid_t pid = 0;
    int status = 0;
    if (posix_spawn(&pid, args[0], &actions, nullptr, args.data(), env) == 0)
        waitpid(pid, &status, 0);
    const double ms = double(timer.nsecsElapsed()) / 1e6;
    posix_spawn_file_actions_destroy(&actions);
    return ms;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main()
{
    QTemporaryDir root;
    const vaxo::AppPaths paths = vaxo::AppPaths::under(root.path());
    vaxo::HookInstaller(paths, root.path(), vaxo::Clock::system()).writeScript();
    const vaxo::AskDecision decisions(paths.decisions(), vaxo::Clock::system());

    const QByteArray hook = paths.hookScript().toUtf8();
    const QByteArray sid = R"("session_id":"0b9c7a52-3f1e-4d6a-9e1f-2c3d4e5f6a7b","cwd":"/home/ada/island",)";
    const QByteArray toolInput = R"("tool_name":"Bash","tool_input":{"command":"make -j2","description":"Build"})";
    const auto hookCase = [&](const char *event, const QByteArray &fields, const QString &answerId = {}) {
        return Case{event, {"/bin/bash", hook, event}, "{" + sid + fields + "}", answerId};
    };
    std::vector<Case> cases{
        {"/usr/bin/python3 -c pass", {"/usr/bin/python3", "-c", "pass"}, "{}", {}},
        hookCase("UserPromptSubmit", R"("prompt":"Fix the failing test in the parser, then run the suite.")"),
        hookCase("PostToolUse", toolInput + R"(,"tool_response":{"stdout":")" + QByteArray(4000, 'x') + R"("})"),
        hookCase("Notification", R"("message":"Claude needs your permission","notification_type":"permission_prompt")"),
        hookCase("Stop", R"("stop_hook_active":false)"),
        hookCase("StopFailure", R"("error":"rate_limit","last_assistant_message":"API Error")"),
        hookCase("PermissionRequest", toolInput + R"(,"tool_use_id":"toolu_bench")", "toolu_bench"),
    };

    QByteArray pathVar = "PATH=/usr/bin:/bin", homeVar = "HOME=" + root.path().toUtf8();
    char *env[] = {pathVar.data(), homeVar.data(), nullptr};
    std::vector<QByteArray> inputs;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        inputs.push_back(root.path().toUtf8() + "/payload" + QByteArray::number(qulonglong(i)));
        QFile file(QString::fromUtf8(inputs.back()));
        if (file.open(QIODevice::WriteOnly))
            file.write(cases[i].payload);
    }
    constexpr int kRuns = 50;
    for (int run = 0; run < kRuns + 1; ++run) {
        for (std::size_t i = 0; i < cases.size(); ++i) {
            if (!cases[i].answerId.isEmpty())
                decisions.answer(cases[i].answerId, vaxo::AskDecision::Answer::Allow);
            const double ms = timeRun(cases[i].argv, inputs[i], env);
            if (run > 0) // the first round warms the page cache
                cases[i].millis.push_back(ms);
        }
    }

    const double bare = median(cases.front().millis);
    std::printf("Hook invocation cost, median of %d runs, in ms (bash + reporter):\n", kRuns);
    for (const Case &c : cases) {
        const double m = median(c.millis);
        const QByteArray label = c.answerId.isEmpty() ? c.label : c.label + " (answered at once)";
        std::printf("  %-40s %7.2f ms   %.2fx the bare interpreter\n", label.constData(), m, m / bare);
    }
    printReporterWaitCost(root.path().toUtf8(), paths.reporterScript().toUtf8());
    return 0;
}
