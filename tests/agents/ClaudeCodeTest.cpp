#include "TempHome.h"
#include "agents/AgentSession.h"
#include "agents/AskDecision.h"
#include "agents/HookInstaller.h"
#include "app/Clock.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
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
    void initTestCase();
    void oneSession();
    void cleanupTestCase();

private:
    void say(const QString &text)
    {
        const QJsonObject message{{"type", "user"}, {"message", QJsonObject{{"role", "user"}, {"content", text}}}};
        m_claude.write(QJsonDocument(message).toJson(QJsonDocument::Compact) + "\n");
    }
    QJsonObject session() const
    {
        const QFileInfoList files = QDir(m_home.paths().sessions()).entryInfoList({"*.json"}, QDir::Files);
        return files.size() == 1 ? QJsonDocument::fromJson(TempHome::read(files.first().filePath())).object()
                                 : QJsonObject();
    }
    QString field(const char *key) const { return session().value(key).toString(); }
    bool answerable() const
    {
        const auto record = vaxo::AgentSession::decode(QJsonDocument(session()).toJson());
        return record && record->isAnswerable();
    }
    void answer(bool allow) const
    {
        vaxo::AskDecision(m_home.paths().decisions(), vaxo::Clock::system()).answer(field("ask_id"), allow);
    }
    QString project(const QString &name) const { return m_project + "/" + name; }

    TempHome m_home;
    QString m_project;
    QProcess m_api;
    QProcess m_claude;
    int m_terminal = -1; // the master side of the terminal Claude Code runs in
    QString m_terminalName;
};

namespace {
constexpr int kPatience = 90'000; // a cold start of Claude Code on a busy machine takes seconds
} // namespace

void ClaudeCodeTest::initTestCase()
{
    const QString claude = QStringLiteral(VAXO_CLAUDE_BINARY);
    QVERIFY2(QFileInfo(claude).isExecutable(), "Claude Code is missing: run scripts/setup.sh");
    const QString home = m_home.root() + "/home";
    QVERIFY(QDir().mkpath(home + "/proj") && QDir().mkpath(home + "/.claude"));
    m_project = QFileInfo(home + "/proj").canonicalFilePath();
    const QJsonObject state{{"hasCompletedOnboarding", true},
                            {"projects", QJsonObject{{m_project, QJsonObject{{"hasTrustDialogAccepted", true}}}}}};
    TempHome::write(home + "/.claude.json", QJsonDocument(state).toJson());
    QTest::ignoreMessage(QtInfoMsg, "[island] Claude Code hooks installed");
    vaxo::HookInstaller(m_home.paths(), home, vaxo::Clock::system()).installIfNeeded();

    // Both children get process groups of their own (Claude Code a session), ended whole at the end.
    m_api.setChildProcessModifier([] { ::setpgid(0, 0); });
    m_api.setStandardErrorFile(m_home.root() + "/api.err");
    m_api.start("/usr/bin/python3",
                {qEnvironmentVariable("VAXO_SOURCE_DIR") + "/tests/agents/messages_api_standin.py"});
    QVERIFY(m_api.waitForReadyRead(30'000));
    const int port = m_api.readLine().trimmed().toInt();
    QVERIFY(port > 0);

    // Offline: anything that still tries another host meets a closed loopback port and fails at once.
    QProcessEnvironment env;
    const QStringList variables{"PATH=/usr/bin:/bin",
                                "HOME=" + home,
                                "VAXO_ASK_TIMEOUT=120",
                                "TMPDIR=" + m_home.root(),
                                "XDG_CONFIG_HOME=" + home + "/.config",
                                "XDG_DATA_HOME=" + home + "/.local/share",
                                "XDG_CACHE_HOME=" + home + "/.cache",
                                QString("ANTHROPIC_BASE_URL=http://127.0.0.1:%1").arg(port),
                                "ANTHROPIC_API_KEY=sk-ant-test-offline",
                                "CLAUDE_CODE_MAX_RETRIES=0",
                                "CLAUDE_CODE_DISABLE_NONESSENTIAL_TRAFFIC=1",
                                "DISABLE_AUTOUPDATER=1",
                                "HTTPS_PROXY=http://127.0.0.1:9",
                                "HTTP_PROXY=http://127.0.0.1:9",
                                "NO_PROXY=127.0.0.1,localhost"};
    for (const QString &variable : variables)
        env.insert(variable.section('=', 0, 0), variable.section('=', 1));
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

void ClaudeCodeTest::oneSession()
{
    // The stand-in holds each answer until its gate file exists, so a turn is seen under way.
    const QString prompt = "Say hello.\nHOLD: " + project("gate");
    say(prompt);
    QTRY_COMPARE_WITH_TIMEOUT(field("status"), QString("working"), kPatience);
    QCOMPARE(field("last_prompt"), prompt);
    QCOMPARE(field("label"), "proj");
    QCOMPARE(field("cwd"), m_project);
    QCOMPARE(field("tty"), m_terminalName);
    TempHome::write(project("gate"), "");
    QTRY_COMPARE_WITH_TIMEOUT(field("status"), QString("done"), kPatience);

    say("Make a file.\nRUN: touch allowed.txt\nHOLD: " + project("gate-allowed"));
    QTRY_VERIFY_WITH_TIMEOUT(answerable(), kPatience);
    QCOMPARE(field("ask_tool"), "Bash");
    QCOMPARE(field("ask_target"), "touch allowed.txt");
    QVERIFY(field("ask_id").startsWith("perm_")); // Claude Code sends no tool-call id; the reporter made one
    QVERIFY(!QFileInfo::exists(project("allowed.txt")));
    answer(true);
    QTRY_COMPARE_WITH_TIMEOUT(field("last_action"), QString("Bash touch allowed.txt"), kPatience);
    QCOMPARE(field("status"), "working");
    QVERIFY(QFileInfo::exists(project("allowed.txt")));
    TempHome::write(project("gate-allowed"), "");
    QTRY_COMPARE_WITH_TIMEOUT(field("status"), QString("done"), kPatience);

    say("Make another file.\nRUN: touch denied.txt");
    QTRY_VERIFY_WITH_TIMEOUT(answerable(), kPatience);
    answer(false);
    QTRY_COMPARE_WITH_TIMEOUT(field("status"), QString("done"), kPatience);
    QVERIFY(!QFileInfo::exists(project("denied.txt")));
    QVERIFY(QDir(m_home.paths().decisions()).entryList(QDir::Files).isEmpty()); // the answer was taken

    m_claude.closeWriteChannel(); // the session ends
    QTRY_VERIFY_WITH_TIMEOUT(QDir(m_home.paths().sessions()).entryList(QDir::Files | QDir::Hidden).isEmpty(),
                             kPatience);
    QTRY_COMPARE_WITH_TIMEOUT(m_claude.state(), QProcess::NotRunning, kPatience);
}

void ClaudeCodeTest::cleanupTestCase()
{
    if (m_claude.state() != QProcess::NotRunning) { // the session did not run to its end
        qInfo().noquote() << "Claude Code's output:\n" << TempHome::read(m_home.root() + "/claude.out").right(4000);
        qInfo().noquote() << TempHome::read(m_home.root() + "/claude.err").right(2000);
        qInfo().noquote() << "Stand-in's requests:\n" << TempHome::read(m_home.root() + "/api.err").right(2000);
    }
    for (QProcess *child : {&m_claude, &m_api}) {
        if (child->processId() > 0)
            ::kill(-pid_t(child->processId()), SIGKILL);
        child->waitForFinished(10'000);
    }
    if (m_terminal >= 0)
        ::close(m_terminal);
}

QTEST_GUILESS_MAIN(ClaudeCodeTest)
#include "ClaudeCodeTest.moc"
