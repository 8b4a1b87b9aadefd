// What a waiting reporter costs while nobody answers: processor time per minute of waiting, with
// the watch on the terminal's answer (transcript, Claude Code's status, the session's file) beside
// the bare 0.2 s poll of the decision file alone, measured in the same run.
#include "ReporterWaitCost.h"

#include <QByteArray>
#include <QFile>
#include <QList>

#include <cstdio>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr double kShort = 2.0;
constexpr double kLong = 12.0;

// Runs argv with stdin from a file; returns the child's processor time (user + system) in ms.
double cpuOf(const QList<QByteArray> &argv, const QByteArray &input, const QList<QByteArray> &environment)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, input.constData(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    std::vector<char *> args, env;
    for (const QByteArray &a : argv)
        args.push_back(const_cast<char *>(a.constData()));
    for (const QByteArray &e : environment)
        env.push_back(const_cast<char *>(e.constData()));
    args.push_back(nullptr);
    env.push_back(nullptr);
    pid_t pid = 0;
    int status = 0;
    rusage usage{};
    if (posix_spawn(&pid, args[0], &actions, nullptr, args.data(), env.data()) == 0)
        wait4(pid, &status, 0, &usage);
    posix_spawn_file_actions_destroy(&actions);
    const auto ms = [](const timeval &t) { return double(t.tv_sec) * 1e3 + double(t.tv_usec) / 1e3; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

void write(const QByteArray &path, const QByteArray &bytes)
{
    QFile file(QString::fromUtf8(path));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

} // namespace

void printReporterWaitCost(const QByteArray &root, const QByteArray &reporter)
{
    // A long transcript (never read again), and Claude Code's status of its process: "waiting".
    const QByteArray transcript = root + "/transcript.jsonl";
    write(transcript, QByteArray(8 << 20, 'x') + "\n");
    const QByteArray pid = QByteArray::number(qint64(getpid()));
    write(root + "/.claude/sessions/" + pid + ".json", R"({"sessionId":"wait","procStart":"1","status":"waiting"})");
    const QByteArray payload = root + "/wait-payload";
    write(payload, R"({"session_id":"wait","tool_name":"Bash","tool_input":{"command":"make"},"transcript_path":")" +
                       transcript + "\"}");

    // Each runs for two budgets; the difference is the waiting alone, start-up and exit cancel out.
    const auto perMinute = [&](const QList<QByteArray> &argv, const QByteArray &pollSource) {
        double cpu[2] = {};
        for (int i = 0; i < 2; ++i) {
            const QByteArray seconds = QByteArray::number(kShort + i * (kLong - kShort));
            const QList<QByteArray> env{"PATH=/usr/bin:/bin",
                                        "HOME=" + root,
                                        "VAXO_ASK_TIMEOUT=" + seconds,
                                        "VAXO_EVENT=PermissionRequest",
                                        "VAXO_SESSIONS=" + root + "/wait-sessions",
                                        "VAXO_DECISIONS=" + root + "/wait-decisions",
                                        "VAXO_PROCESS=" + pid + " 1"};
            QList<QByteArray> args = argv;
            if (!pollSource.isEmpty())
                args << QByteArray(pollSource).replace("@SECONDS@", seconds);
            cpu[i] = cpuOf(args, payload, env);
        }
        return (cpu[1] - cpu[0]) * 60.0 / (kLong - kShort);
    };
    // Yesterday's wait: the decision file looked for every 0.2 s, nothing else.
    const QByteArray bare = "import time, posix\n"
                            "deadline = time.time() + @SECONDS@\n"
                            "while time.time() < deadline:\n"
                            "    try:\n"
                            "        posix.close(posix.open('" +
                            root +
                            "/wait-decisions/x.json', posix.O_RDONLY))\n"
                            "    except FileNotFoundError:\n"
                            "        time.sleep(0.2)\n";
    const double polling = perMinute({"/usr/bin/python3", "-I", "-S", "-c"}, bare);
    const double watching = perMinute({"/usr/bin/python3", "-I", "-S", reporter}, {});
    std::printf("Waiting reporter, processor time per minute of waiting:\n");
    std::printf("  %-40s %7.1f ms\n", "decision file polled alone (0.2 s)", polling);
    std::printf("  %-40s %7.1f ms   %.2fx the bare poll\n", "with the watch on the terminal's answer", watching,
                watching / polling);
}
