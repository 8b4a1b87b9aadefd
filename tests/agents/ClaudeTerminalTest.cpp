#include "ClaudeHarness.h"
#include "agents/AgentSession.h"
#include "agents/AskDecision.h"
#include "agents/LocalHookSource.h"
#include "agents/SessionLiveness.h"
#include "base/Clock.h"
#include "platform/PlatformServices.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTest>

#include <csignal>
#include <functional>

using vaxo::AgentSession;
using vaxo::test::ClaudeHarness;
using vaxo::test::TempHome;

// The real Claude Code in a terminal (tmux, on a socket of the test's own), as a person uses it,
// with the island's session source watching its sessions folder and its processes.
class ClaudeTerminalTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void answersInTheTerminalAndFromTheIsland();
    void finishedAndFailedTurnsStayDone();
    void interruptedAndClosedSessions();

private:
    QByteArray tmux(const QStringList &args);
    // Starts Claude Code in a new terminal window; returns its process id.
    qint64 startClaude(const QString &window);
    // Types a prompt into the window of Claude Code's process pid and submits it.
    void type(const QString &window, qint64 pid, const QString &text);
    // Picks an option of the permission dialog by its number.
    void choose(const QString &window, const QString &option);
    // Presses key now and again, never twice within a second, until done holds.
    void pressUntil(const QString &window, const QString &key, const std::function<bool()> &done, int timeout);
    QString screen(const QString &window) { return QString::fromUtf8(tmux({"capture-pane", "-p", "-t", window})); }
    // The session of Claude Code's process, as its file says and as the island lists it.
    QString field(qint64 pid, const char *key = "status") const { return m_harness->field(pid, key); }
    QString listed(qint64 pid) const;
    // Reporters still running for this test's sessions.
    int reporters() const;

    std::unique_ptr<ClaudeHarness> m_harness;
    std::unique_ptr<vaxo::LocalHookSource> m_source;
    QList<AgentSession> m_listed;
    QString m_socket;
    QList<qint64> m_started;
};

namespace {
constexpr int kPatience = ClaudeHarness::kPatience;
// The island follows an answer given in the terminal at its next look, a fraction of a second
// later; this bound only tells that apart from the reporter's two-minute budget.
constexpr int kSoon = 10'000;
} // namespace

void ClaudeTerminalTest::initTestCase()
{
    m_harness = std::make_unique<ClaudeHarness>();
    QVERIFY2(m_harness->ready(), "Claude Code or its stand-in is missing: run scripts/setup.sh");
    m_socket = m_harness->temp().root() + "/tmux.sock";
    const QString home = m_harness->home();
    auto *liveness =
        new vaxo::SessionLiveness(m_harness->temp().paths().sessions(), vaxo::PlatformServices::newProcessWatcher(),
                                  home + "/.claude/sessions", vaxo::PlatformServices::newFolderWatcher());
    m_source = std::make_unique<vaxo::LocalHookSource>(m_harness->temp().paths().sessions(), vaxo::Clock::system(),
                                                       vaxo::PlatformServices::newFolderWatcher(), liveness);
    m_source->start([this](const QList<AgentSession> &list) { m_listed = list; });

    // A second hook beside ours notes each notification, so the test knows when the idle one came.
    const QString settings = home + "/.claude/settings.json";
    QJsonObject root = QJsonDocument::fromJson(TempHome::read(settings)).object();
    QJsonObject hooks = root.value("hooks").toObject();
    QJsonArray notification = hooks.value("Notification").toArray();
    const QString log = m_harness->temp().root() + "/notifications.log";
    notification.append(QJsonObject{
        {"hooks",
         QJsonArray{QJsonObject{{"type", "command"}, {"command", "cat >> '" + log + "'; echo >> '" + log + "'"}}}}});
    hooks.insert("Notification", notification);
    root.insert("hooks", hooks);
    TempHome::write(settings, QJsonDocument(root).toJson());
    tmux({"-f", "/dev/null", "new-session", "-d", "-s", "main", "-x", "160", "-y", "50", "/bin/cat"});
}

void ClaudeTerminalTest::cleanup()
{
    if (QTest::currentTestFailed())
        m_harness->report();
}

void ClaudeTerminalTest::cleanupTestCase()
{
    if (m_source)
        m_source->stop();
    if (!m_socket.isEmpty())
        tmux({"kill-server"});
    // Claude Code writes its files as it ends: the folder goes only after it has.
    for (const qint64 pid : std::as_const(m_started))
        QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo::exists(QString("/proc/%1").arg(pid)), kPatience);
}

QByteArray ClaudeTerminalTest::tmux(const QStringList &args)
{
    QProcess process;
    QProcessEnvironment env; // the server starts with nothing of ours but a UTF-8 locale
    env.insert("LANG", "C.UTF-8");
    process.setProcessEnvironment(env);
    process.start("/usr/bin/tmux", QStringList{"-S", m_socket} + args);
    process.waitForFinished(10'000);
    return process.readAllStandardOutput();
}

qint64 ClaudeTerminalTest::startClaude(const QString &window)
{
    const QStringList command = QStringList{"/usr/bin/env", "-i"} + m_harness->environment() +
                                QStringList{m_harness->claude(), "--permission-mode", "default"};
    tmux(QStringList{"new-window", "-d", "-t", "main", "-n", window, "-c", m_harness->project()} + command);
    const qint64 pid = tmux({"display-message", "-p", "-t", window, "#{pane_pid}"}).trimmed().toLongLong();
    m_started << pid;
    // Ready once it shows its prompt line.
    [&] { QTRY_VERIFY_WITH_TIMEOUT(screen(window).contains(QStringLiteral("\u276f")), kPatience); }();
    return pid;
}

void ClaudeTerminalTest::pressUntil(const QString &window, const QString &key, const std::function<bool()> &done,
                                    int timeout)
{
    QElapsedTimer since;
    const auto press = [&] {
        if (since.isValid() && since.elapsed() < 1000)
            return;
        tmux({"send-keys", "-t", window, key});
        since.start();
    };
    [&] { QTRY_VERIFY_WITH_TIMEOUT(done() || (press(), false), timeout); }();
}

void ClaudeTerminalTest::choose(const QString &window, const QString &option)
{
    // The dialog ignores keys for a moment after it shows: a press that came too late is cleared from
    // the prompt.
    pressUntil(
        window, option, [&] { return !screen(window).contains("Do you want to proceed?"); }, kSoon);
    tmux({"send-keys", "-t", window, "C-u"});
}

void ClaudeTerminalTest::type(const QString &window, qint64 pid, const QString &text)
{
    tmux({"send-keys", "-t", window, "-l", text});
    // Text that arrives this fast can still count as a paste when Enter follows, and the Enter is then
    // lost: it is pressed again until the prompt has reached the session.
    pressUntil(
        window, "Enter", [&] { return field(pid, "last_prompt").contains(text); }, kPatience);
}

QString ClaudeTerminalTest::listed(qint64 pid) const
{
    for (const AgentSession &s : m_listed) {
        if (s.process && s.process->pid == pid)
            return s.status;
    }
    return QStringLiteral("none");
}

int ClaudeTerminalTest::reporters() const
{
    int count = 0;
    const QByteArray script = m_harness->temp().paths().reporterScript().toUtf8();
    for (const QString &pid : QDir("/proc").entryList({"[0-9]*"}, QDir::Dirs))
        count += TempHome::read("/proc/" + pid + "/cmdline").contains(script);
    return count;
}

void ClaudeTerminalTest::answersInTheTerminalAndFromTheIsland()
{
    const qint64 pid = startClaude("answers");
    const QString project = m_harness->project();

    // Refused in the terminal: the question leaves the island, and its reporter ends.
    type("answers", pid, "Make a file. RUN: touch refused.txt");
    QTRY_VERIFY_WITH_TIMEOUT(m_harness->asks(pid), kPatience);
    QTRY_VERIFY_WITH_TIMEOUT(screen("answers").contains(QRegularExpression("\\d\\. No")), kPatience);
    choose("answers", QRegularExpression("(\\d)\\. No").match(screen("answers")).captured(1));
    QTRY_COMPARE_WITH_TIMEOUT(field(pid), QString("done"), kSoon);
    QTRY_COMPARE_WITH_TIMEOUT(reporters(), 0, kSoon);
    QVERIFY(!QFileInfo::exists(project + "/refused.txt"));

    // Allowed there: the same.
    type("answers", pid, "Make a file. RUN: touch allowed.txt");
    QTRY_VERIFY_WITH_TIMEOUT(m_harness->asks(pid), kPatience);
    QTRY_VERIFY_WITH_TIMEOUT(screen("answers").contains("1. Yes"), kPatience);
    choose("answers", "1");
    QTRY_VERIFY_WITH_TIMEOUT(field(pid) != "waiting", kSoon);
    QTRY_COMPARE_WITH_TIMEOUT(reporters(), 0, kSoon);
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(project + "/allowed.txt"), kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(field(pid), QString("done"), kPatience);

    // "Always" from the island: the call runs, and the next of its kind is not asked about (an ask
    // would hold the file back for the reporter's two minutes).
    type("answers", pid, "Make a file. RUN: touch always-1.txt");
    QTRY_VERIFY_WITH_TIMEOUT(m_harness->asks(pid), kPatience);
    const auto record = AgentSession::decode(QJsonDocument(m_harness->session(pid)).toJson());
    QVERIFY(record && record->offersAlways());
    vaxo::AskDecision(m_harness->temp().paths().decisions(), vaxo::Clock::system())
        .answer(*record->askId, vaxo::AskDecision::Answer::Always);
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(project + "/always-1.txt"), kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(field(pid), QString("done"), kPatience);
    type("answers", pid, "Make another. RUN: touch always-2.txt");
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(project + "/always-2.txt"), kPatience);
    QVERIFY(!screen("answers").contains("Do you want to proceed?"));
}

void ClaudeTerminalTest::finishedAndFailedTurnsStayDone()
{
    const qint64 pid = startClaude("turns");
    type("turns", pid, "Say hello.");
    QTRY_COMPARE_WITH_TIMEOUT(field(pid), QString("done"), kPatience);
    // A minute after the turn Claude Code says it waits for input: that changes nothing.
    const QString log = m_harness->temp().root() + "/notifications.log";
    QTRY_VERIFY_WITH_TIMEOUT(TempHome::read(log).contains("\"idle_prompt\""), 3 * kPatience);
    QCOMPARE(field(pid), QString("done"));
    QCOMPARE(listed(pid), QString("done"));

    // The API fails the next turn: done, and the card can say why.
    type("turns", pid, "Fail now. FAIL: 429 rate_limit_error");
    QTRY_COMPARE_WITH_TIMEOUT(field(pid, "waiting_for"), QString("rate_limit"), kPatience);
    QCOMPARE(field(pid), QString("done"));
}

void ClaudeTerminalTest::interruptedAndClosedSessions()
{
    const qint64 first = startClaude("first");
    const qint64 second = startClaude("second");
    type("second", second, "Say hello.");
    QTRY_COMPARE_WITH_TIMEOUT(listed(second), QString("done"), kPatience);

    // Esc during a turn: no hook runs, yet the island sees the turn end.
    type("first", first, "Say hello. HOLD: " + m_harness->project() + "/never");
    QTRY_COMPARE_WITH_TIMEOUT(listed(first), QString("working"), kPatience);
    tmux({"send-keys", "-t", "first", "Escape"});
    QTRY_COMPARE_WITH_TIMEOUT(listed(first), QString("done"), kSoon);

    // Its terminal's process killed outright (no SessionEnd can run): the session goes, the other stays.
    QVERIFY(::kill(pid_t(first), SIGKILL) == 0);
    QTRY_COMPARE_WITH_TIMEOUT(listed(first), QString("none"), kSoon);
    QVERIFY(m_harness->session(first).isEmpty());
    QCOMPARE(listed(second), QString("done"));
}

QTEST_GUILESS_MAIN(ClaudeTerminalTest)
#include "ClaudeTerminalTest.moc"
