#include "ScriptRun.h"
#include "TempHome.h"
#include "agents/AgentSession.h"
#include "agents/AskDecision.h"
#include "agents/HookInstaller.h"
#include "app/Clock.h"

#include <QDir>
#include <QJsonDocument>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

using vaxo::test::TempHome;

// One session of the real Claude Code, offline against a stand-in for its API, with the hooks our
// installer registers. The test functions run in order and follow that session step by step.
class ClaudeCodeTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void promptTurnsTheSessionWorking();
    void endOfTurnMakesItDone();
    void allowedToolRuns();
    void deniedToolDoesNotRun();
    void endingTheSessionRemovesItsFile();
    void cleanupTestCase();

private:
    void say(const QString &text);
    QJsonObject session() const;
    QString project(const QString &name) const { return m_project + "/" + name; }
    QString askId() const { return session().value("ask_id").toString(); }
    bool answerable() const
    {
        const auto record = vaxo::AgentSession::decode(QJsonDocument(session()).toJson());
        return record && record->isAnswerable();
    }

    TempHome m_home;
    QString m_project;
    QProcess m_api;
    QProcess m_claude;
    int m_terminal = -1; // the master side of the terminal Claude Code runs in
    QString m_terminalName;
    bool m_failed = false;
};

namespace {

constexpr int kPatience = 90'000; // a cold start of Claude Code on a busy machine takes seconds

// Starts child in a process group of its own (Claude Code gets a session, which brings one), so
// that everything it starts can be ended with it.
void ownGroup(QProcess &child)
{
    child.setChildProcessModifier([] { ::setpgid(0, 0); });
}

void endGroup(QProcess &child)
{
    if (child.processId() > 0)
        ::kill(-pid_t(child.processId()), SIGKILL);
    child.waitForFinished(10'000);
}

} // namespace

void ClaudeCodeTest::initTestCase()
{
    const QString claude = QStringLiteral(VAXO_CLAUDE_BINARY);
    QVERIFY2(QFileInfo(claude).isExecutable(), "Claude Code is missing: run scripts/setup.sh");

    const QString home = m_home.root() + "/home";
    m_project = home + "/proj";
    QVERIFY(QDir().mkpath(m_project));
    QVERIFY(QDir().mkpath(home + "/.claude"));
    m_project = QFileInfo(m_project).canonicalFilePath();
    const QJsonObject state{{"hasCompletedOnboarding", true},
                            {"projects", QJsonObject{{m_project, QJsonObject{{"hasTrustDialogAccepted", true}}}}}};
    TempHome::write(home + "/.claude.json", QJsonDocument(state).toJson());
    QTest::ignoreMessage(QtInfoMsg, "[island] Claude Code hooks installed");
    vaxo::HookInstaller(m_home.paths(), home, vaxo::Clock::system()).installIfNeeded();

    ownGroup(m_api);
    m_api.setStandardErrorFile(m_home.root() + "/api.err");
    m_api.start("/usr/bin/python3",
                {qEnvironmentVariable("VAXO_SOURCE_DIR") + "/tests/agents/messages_api_standin.py"});
    QVERIFY(m_api.waitForReadyRead(30'000));
    const int port = m_api.readLine().trimmed().toInt();
    QVERIFY(port > 0);

    QProcessEnvironment env = vaxo::test::scriptEnvironment(home);
    env.insert("VAXO_ASK_TIMEOUT", "120");
    env.insert("TMPDIR", m_home.root());
    env.insert("XDG_CONFIG_HOME", home + "/.config");
    env.insert("XDG_DATA_HOME", home + "/.local/share");
    env.insert("XDG_CACHE_HOME", home + "/.cache");
    env.insert("ANTHROPIC_BASE_URL", QString("http://127.0.0.1:%1").arg(port));
    env.insert("ANTHROPIC_API_KEY", "sk-ant-test-offline");
    env.insert("CLAUDE_CODE_MAX_RETRIES", "0");
    env.insert("CLAUDE_CODE_DISABLE_NONESSENTIAL_TRAFFIC", "1");
    env.insert("DISABLE_AUTOUPDATER", "1");
    // Anything that still tries another host meets a closed loopback port and fails at once.
    env.insert("HTTPS_PROXY", "http://127.0.0.1:9");
    env.insert("HTTP_PROXY", "http://127.0.0.1:9");
    env.insert("NO_PROXY", "127.0.0.1,localhost");
    m_claude.setProcessEnvironment(env);
    m_claude.setWorkingDirectory(m_project);
    m_claude.setStandardOutputFile(m_home.root() + "/claude.out");
    m_claude.setStandardErrorFile(m_home.root() + "/claude.err");
    // Claude Code gets a terminal of its own, as in a terminal window, while the test talks to it
    // over pipes; its hooks run without one and must find it.
    m_terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    QVERIFY(m_terminal >= 0 && ::grantpt(m_terminal) == 0 && ::unlockpt(m_terminal) == 0);
    m_terminalName = QString::fromLocal8Bit(::ptsname(m_terminal));
    const QByteArray terminal = m_terminalName.toLocal8Bit();
    m_claude.setChildProcessModifier([terminal] {
        ::setsid();
        ::close(::open(terminal.constData(), O_RDWR));
    });
    // Stream-json mode asks for permissions (plain -p refuses tools); standard input stays open.
    m_claude.start(claude, {"-p", "--input-format", "stream-json", "--output-format", "stream-json", "--verbose",
                            "--permission-prompt-tool", "stdio"});
    QVERIFY(m_claude.waitForStarted(30'000));
}

void ClaudeCodeTest::init()
{
    if (m_failed)
        QSKIP("an earlier step of the session failed");
}

void ClaudeCodeTest::cleanup()
{
    m_failed = m_failed || QTest::currentTestFailed();
}

void ClaudeCodeTest::say(const QString &text)
{
    const QJsonObject message{{"type", "user"}, {"message", QJsonObject{{"role", "user"}, {"content", text}}}};
    m_claude.write(QJsonDocument(message).toJson(QJsonDocument::Compact) + "\n");
}

QJsonObject ClaudeCodeTest::session() const
{
    const QStringList files = QDir(m_home.paths().sessions()).entryList({"*.json"}, QDir::Files);
    return files.size() == 1 ? vaxo::test::readSession(m_home.paths(), files.first().chopped(5)) : QJsonObject();
}

void ClaudeCodeTest::promptTurnsTheSessionWorking()
{
    // The stand-in holds its answer until the gate file exists, so the turn is seen under way.
    const QString prompt = "Say hello.\nHOLD: " + project("gate");
    say(prompt);
    QTRY_COMPARE_WITH_TIMEOUT(session().value("status").toString(), QString("working"), kPatience);
    const QJsonObject record = session();
    QCOMPARE(record.value("last_prompt").toString(), prompt);
    QCOMPARE(record.value("agent").toString(), "claude");
    QCOMPARE(record.value("label").toString(), "proj");
    QCOMPARE(record.value("cwd").toString(), m_project);
    QCOMPARE(record.value("id").toString().size(), 36);
    QCOMPARE(record.value("tty").toString(), m_terminalName);
}

void ClaudeCodeTest::endOfTurnMakesItDone()
{
    TempHome::write(project("gate"), "");
    QTRY_COMPARE_WITH_TIMEOUT(session().value("status").toString(), QString("done"), kPatience);
}

void ClaudeCodeTest::allowedToolRuns()
{
    say("Make a file.\nRUN: touch allowed.txt\nHOLD: " + project("gate-allowed"));
    QTRY_VERIFY_WITH_TIMEOUT(answerable(), kPatience);
    const QJsonObject asked = session();
    QCOMPARE(asked.value("ask_tool").toString(), "Bash");
    QVERIFY(askId().startsWith("perm_")); // Claude Code sends no tool-call id; the reporter made one
    QCOMPARE(asked.value("ask_target").toString(), "touch allowed.txt");
    QVERIFY(!QFileInfo::exists(project("allowed.txt")));

    vaxo::AskDecision(m_home.paths().decisions(), vaxo::Clock::system()).answer(askId(), true);
    QTRY_COMPARE_WITH_TIMEOUT(session().value("last_action").toString(), QString("Bash touch allowed.txt"), kPatience);
    QCOMPARE(session().value("status").toString(), "working");
    QVERIFY(session().value("ask_id").isNull());
    QVERIFY(QFileInfo::exists(project("allowed.txt")));

    TempHome::write(project("gate-allowed"), "");
    QTRY_COMPARE_WITH_TIMEOUT(session().value("status").toString(), QString("done"), kPatience);
}

void ClaudeCodeTest::deniedToolDoesNotRun()
{
    say("Make another file.\nRUN: touch denied.txt");
    QTRY_VERIFY_WITH_TIMEOUT(answerable(), kPatience);
    QCOMPARE(session().value("ask_target").toString(), "touch denied.txt");

    vaxo::AskDecision(m_home.paths().decisions(), vaxo::Clock::system()).answer(askId(), false);
    QTRY_COMPARE_WITH_TIMEOUT(session().value("status").toString(), QString("done"), kPatience);
    QVERIFY(!QFileInfo::exists(project("denied.txt")));
    QVERIFY(QDir(m_home.paths().decisions()).entryList(QDir::Files).isEmpty());
}

void ClaudeCodeTest::endingTheSessionRemovesItsFile()
{
    m_claude.closeWriteChannel();
    QTRY_VERIFY_WITH_TIMEOUT(QDir(m_home.paths().sessions()).entryList(QDir::Files | QDir::Hidden).isEmpty(),
                             kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(m_claude.state(), QProcess::NotRunning, kPatience);
}

void ClaudeCodeTest::cleanupTestCase()
{
    if (m_failed || m_claude.state() != QProcess::NotRunning) {
        qInfo().noquote() << "Claude Code's output:\n" << TempHome::read(m_home.root() + "/claude.out").right(4000);
        qInfo().noquote() << TempHome::read(m_home.root() + "/claude.err").right(2000);
        qInfo().noquote() << "Stand-in's requests:\n" << TempHome::read(m_home.root() + "/api.err").right(2000);
    }
    endGroup(m_claude);
    endGroup(m_api);
    if (m_terminal >= 0)
        ::close(m_terminal);
}

QTEST_GUILESS_MAIN(ClaudeCodeTest)
#include "ClaudeCodeTest.moc"
