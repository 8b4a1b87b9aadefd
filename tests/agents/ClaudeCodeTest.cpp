#include "ClaudeHarness.h"
#include "agents/AskDecision.h"
#include "base/Clock.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QScopeGuard>
#include <QTest>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

using vaxo::test::TempHome;

// One session of the real Claude Code, offline against a stand-in for its API, with the hooks our
// installer registers, followed step by step.
class ClaudeCodeTest : public QObject {
    Q_OBJECT
private slots:
    void oneSession();
};

void ClaudeCodeTest::oneSession()
{
    using vaxo::test::ClaudeHarness;
    constexpr int kPatience = ClaudeHarness::kPatience;
    ClaudeHarness harness;
    QVERIFY2(harness.ready(), "Claude Code or its stand-in is missing: run scripts/setup.sh");
    const TempHome &temp = harness.temp();
    const QString project = harness.project();

    // Claude Code gets a terminal of its own, as in a terminal window, while the test talks to it
    // over pipes; its hooks run without one and must find it.
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    QVERIFY(terminal >= 0 && ::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0);
    const QByteArray terminalName = ::ptsname(terminal);
    QProcess agent;
    // Claude Code leads a session of its own, which ends whole with the test.
    const auto end = qScopeGuard([&] {
        if (QTest::currentTestFailed()) {
            qInfo().noquote() << "Claude Code:\n" << TempHome::read(temp.root() + "/claude.out").right(4000);
            qInfo().noquote() << TempHome::read(temp.root() + "/claude.err").right(2000);
            harness.report();
        }
        if (agent.processId() > 0)
            ::kill(-pid_t(agent.processId()), SIGKILL);
        agent.waitForFinished(10'000);
        ::close(terminal);
    });
    agent.setWorkingDirectory(project);
    agent.setStandardOutputFile(temp.root() + "/claude.out");
    agent.setStandardErrorFile(temp.root() + "/claude.err");
    agent.setChildProcessModifier([terminalName] {
        ::setsid();
        ::close(::open(terminalName.constData(), O_RDWR));
    });
    // Stream-json mode asks for permissions (plain -p refuses tools); standard input stays open.
    agent.start("/usr/bin/env",
                QStringList{"-i"} + harness.environment() +
                    QStringList{harness.claude(), "-p", "--input-format", "stream-json", "--output-format",
                                "stream-json", "--verbose", "--permission-prompt-tool", "stdio"});
    QVERIFY(agent.waitForStarted(30'000));

    const auto say = [&](const QString &text) {
        const QJsonObject message{{"type", "user"}, {"message", QJsonObject{{"role", "user"}, {"content", text}}}};
        agent.write(QJsonDocument(message).toJson(QJsonDocument::Compact) + "\n");
    };
    const auto field = [&](const char *key) { return harness.field(agent.processId(), key); };
    const auto answer = [&](bool allow) {
        vaxo::AskDecision(temp.paths().decisions(), vaxo::Clock::system())
            .answer(field("ask_id"), allow ? vaxo::AskDecision::Answer::Allow : vaxo::AskDecision::Answer::Deny);
    };

    // The stand-in holds each answer until its gate file exists, so a turn is seen under way.
    const QString prompt = "Say hello.\nHOLD: " + project + "/gate";
    say(prompt);
    QTRY_COMPARE_WITH_TIMEOUT(field("status"), QString("working"), kPatience);
    QCOMPARE(field("last_prompt"), prompt);
    QCOMPARE(field("label"), "proj");
    QCOMPARE(field("cwd"), project);
    QCOMPARE(field("tty"), QString::fromLocal8Bit(terminalName));
    TempHome::write(project + "/gate", "");
    QTRY_COMPARE_WITH_TIMEOUT(field("status"), QString("done"), kPatience);

    say("Make a file.\nRUN: touch allowed.txt\nHOLD: " + project + "/gate-allowed");
    QTRY_VERIFY_WITH_TIMEOUT(harness.asks(agent.processId()), kPatience);
    QCOMPARE(field("ask_tool"), "Bash");
    QCOMPARE(field("ask_target"), "touch allowed.txt");
    QVERIFY(field("ask_id").startsWith("perm_")); // Claude Code sends no tool-call id; the reporter made one
    QVERIFY(!QFileInfo::exists(project + "/allowed.txt"));
    answer(true);
    QTRY_COMPARE_WITH_TIMEOUT(field("last_action"), QString("Bash touch allowed.txt"), kPatience);
    QCOMPARE(field("status"), "working");
    QVERIFY(QFileInfo::exists(project + "/allowed.txt"));
    TempHome::write(project + "/gate-allowed", "");
    QTRY_COMPARE_WITH_TIMEOUT(field("status"), QString("done"), kPatience);

    say("Make another file.\nRUN: touch denied.txt");
    QTRY_VERIFY_WITH_TIMEOUT(harness.asks(agent.processId()), kPatience);
    answer(false);
    QTRY_COMPARE_WITH_TIMEOUT(field("status"), QString("done"), kPatience);
    QVERIFY(!QFileInfo::exists(project + "/denied.txt"));
    QVERIFY(QDir(temp.paths().decisions()).entryList(QDir::Files).isEmpty()); // the answer was taken

    agent.closeWriteChannel(); // the session ends
    QTRY_VERIFY_WITH_TIMEOUT(QDir(temp.paths().sessions()).entryList(QDir::Files | QDir::Hidden).isEmpty(), kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(agent.state(), QProcess::NotRunning, kPatience);
}

QTEST_GUILESS_MAIN(ClaudeCodeTest)
#include "ClaudeCodeTest.moc"
