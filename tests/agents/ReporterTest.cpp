#include "FakeClock.h"
#include "ScriptRun.h"
#include "TempHome.h"
#include "agents/AgentSession.h"
#include "agents/AskDecision.h"
#include "agents/HookInstaller.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

using vaxo::HookInstaller;
using vaxo::test::runHook;
using vaxo::test::TempHome;

// The installed hook and reporter, run by bash and /usr/bin/python3 on payloads as Claude Code sends them.
class ReporterTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void events_data();
    void events();
    void recordCarriesWhatTheEventDoesNotTouch();
    void sessionEndLeavesNothing();
    void concurrentEventsNeverLeaveHalfAFile();
    void permissionRequestWithoutIdGetsOne();
    void terminalComesFromTheNearestAncestorWithOne();
    void hookEndsQuietlyWithoutItsReporter();

private:
    QJsonObject send(const QString &event, const QJsonObject &payload, const QProcessEnvironment &extra = {});

    std::unique_ptr<TempHome> m_home;
};

namespace {

const QString kSid = QStringLiteral("5f0c3a1e-0000-4000-8000-000000000001");
const QStringList kAskKeys{"ask_tool", "ask_target", "ask_id"};
const QStringList kAllKeys{"id",          "agent",        "label", "status",      "started",    "updated",
                           "last_prompt", "last_action",  "tasks", "waiting_for", "cwd",        "host_bundle",
                           "term_app",    "term_session", "tty",   "ask_tool",    "ask_target", "ask_id"};

QJsonObject json(const char *text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

void ReporterTest::init()
{
    m_home = std::make_unique<TempHome>();
    vaxo::test::FakeClock clock;
    HookInstaller(m_home->paths(), m_home->root(), clock).writeScript();
}

QJsonObject ReporterTest::send(const QString &event, const QJsonObject &payload, const QProcessEnvironment &extra)
{
    QJsonObject withId = payload;
    if (!withId.contains("session_id"))
        withId.insert("session_id", kSid);
    const auto result = runHook(m_home->paths(), event, QJsonDocument(withId).toJson(), extra);
    // The hook's standard output is Claude Code's: nothing may appear there but a decision.
    [&] {
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.err, QByteArray());
    }();
    const QJsonValue id = withId.value("session_id");
    const QString file = id.isString() ? id.toString() : QStringLiteral("unknown");
    // Every record written is one the island accepts.
    const QByteArray written = TempHome::read(m_home->paths().sessions() + "/" + file + ".json");
    if (!written.isEmpty())
        [&] { QVERIFY2(vaxo::AgentSession::decode(written), written.constData()); }();
    return vaxo::test::readSession(m_home->paths(), file);
}

void ReporterTest::events_data()
{
    QTest::addColumn<QByteArray>("previousEvent"); // sent first, "" for none
    QTest::addColumn<QByteArray>("previousPayload");
    QTest::addColumn<QString>("event");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QByteArray>("expected"); // fields of the record afterwards

    const QByteArray asked = R"({"tool_name":"Bash","tool_input":{"command":"rm -rf build"},"tool_use_id":"toolu_01"})";
    QTest::newRow("prompt") << QByteArray() << QByteArray() << "UserPromptSubmit"
                            << QByteArray(R"({"prompt":"fix it"})")
                            << QByteArray(R"({"status":"working","last_prompt":"fix it","waiting_for":null})");
    QTest::newRow("stop") << QByteArray("PostToolUse")
                          << QByteArray(R"({"tool_name":"Read","tool_input":{"path":"a"}})") << "Stop"
                          << QByteArray("{}")
                          << QByteArray(R"({"status":"done","last_action":null,"waiting_for":null})");
    QTest::newRow("permission request")
        << QByteArray() << QByteArray() << "PermissionRequest" << asked
        << QByteArray(R"({"status":"waiting","waiting_for":"permission","ask_tool":"Bash","ask_target":"rm -rf build",
                          "ask_id":"toolu_01"})");
    QTest::newRow("notification with tool information replaces the question")
        << QByteArray("PermissionRequest") << asked << "Notification"
        << QByteArray(R"({"message":"Edit?","tool_name":"Edit","tool_input":{"file_path":"/a.c","url":"x"}})")
        << QByteArray(
               R"({"status":"waiting","waiting_for":"Edit?","ask_tool":"Edit","ask_target":"/a.c","ask_id":null})");
    QTest::newRow("bare notification keeps a waiting question")
        << QByteArray("PermissionRequest") << asked << "Notification"
        << QByteArray(R"({"message":"Claude needs your permission","notification_type":"permission_prompt"})")
        << QByteArray(R"({"status":"waiting","waiting_for":"Claude needs your permission","ask_tool":"Bash",
                          "ask_target":"rm -rf build","ask_id":"toolu_01"})");
    QTest::newRow("bare notification while working asks nothing")
        << QByteArray("UserPromptSubmit") << QByteArray(R"({"prompt":"p"})") << "Notification" << QByteArray("{}")
        << QByteArray(R"({"status":"waiting","waiting_for":"needs your answer","ask_tool":null,"ask_id":null})");
    QTest::newRow("tool use clears the question")
        << QByteArray("PermissionRequest") << asked << "PostToolUse"
        << QByteArray(R"({"tool_name":"Edit","tool_input":{"command":"c","file_path":"/src/main.c\n"}})")
        << QByteArray(R"({"status":"working","waiting_for":null,"last_action":"Edit /src/main.c","ask_tool":null,
                          "ask_target":null,"ask_id":null})");
    QTest::newRow("tool use by pattern") << QByteArray() << QByteArray() << "PostToolUse"
                                         << QByteArray(R"({"tool_name":"Grep","tool_input":{"pattern":"TODO"}})")
                                         << QByteArray(R"({"status":"working","last_action":"Grep TODO"})");
    QTest::newRow("other event changes nothing but drops the question")
        << QByteArray("PermissionRequest") << asked << "SubagentStop" << QByteArray("{}")
        << QByteArray(R"({"status":"waiting","waiting_for":"permission","ask_id":null})");
    QTest::newRow("label from cwd with trailing slash")
        << QByteArray() << QByteArray() << "Stop" << QByteArray(R"({"cwd":"/home/ada/island/"})")
        << QByteArray(R"({"label":"island","cwd":"/home/ada/island/"})");
    QTest::newRow("root folder is labelled session")
        << QByteArray() << QByteArray() << "Stop" << QByteArray(R"({"cwd":"/"})")
        << QByteArray(R"({"label":"session"})");
}

void ReporterTest::events()
{
    QFETCH(QByteArray, previousEvent);
    QFETCH(QByteArray, previousPayload);
    QFETCH(QString, event);
    QFETCH(QByteArray, payload);
    QFETCH(QByteArray, expected);

    if (!previousEvent.isEmpty())
        send(QString::fromUtf8(previousEvent), json(previousPayload));
    const QJsonObject record = send(event, json(payload));
    QCOMPARE(record.keys().size(), kAllKeys.size());
    for (const QString &key : kAllKeys)
        QVERIFY2(record.contains(key), qPrintable(key));
    const QJsonObject want = json(expected);
    for (auto it = want.begin(); it != want.end(); ++it)
        QCOMPARE(record.value(it.key()), it.value());
}

void ReporterTest::recordCarriesWhatTheEventDoesNotTouch()
{
    // An earlier writer's fields survive, and the terminal's variables fill what they name.
    TempHome::write(m_home->paths().sessions() + "/" + kSid + ".json", R"({"id":"x","agent":"codex","started":12.5,
        "tasks":{"done":1,"in_progress":0,"open":2,"items":[]},"cwd":"/w/old","tty":"/dev/pts/9","term_app":"kitty"})");
    QProcessEnvironment terminal;
    terminal.insert("TERM_PROGRAM", "WezTerm");
    terminal.insert("ITERM_SESSION_ID", "w0t1:");
    terminal.insert("TERM_SESSION_ID", "ABC");
    const QJsonObject first = send("UserPromptSubmit", {{"prompt", QString(1000, QChar(0xe9))}}, terminal);
    QCOMPARE(first.value("id").toString(), kSid);
    QCOMPARE(first.value("agent").toString(), "codex");
    QCOMPARE(first.value("started").toDouble(), 12.5);
    QVERIFY(first.value("updated").toDouble() > 1.7e9);
    QCOMPARE(first.value("tasks").toObject().value("open").toInt(), 2);
    QCOMPARE(first.value("cwd").toString(), QDir::currentPath()); // the hook's own folder comes before it
    QCOMPARE(first.value("term_app").toString(), "WezTerm");
    QCOMPARE(first.value("term_session").toString(), "w0t1:ABC");
    QCOMPARE(first.value("last_prompt").toString(), QString(400, QChar(0xe9)));

    // The 300 cuts, and a session without an id.
    const QJsonObject asked =
        send("PermissionRequest", QJsonObject{{"session_id", QJsonValue()},
                                              {"message", QString(500, 'm')},
                                              {"tool_name", "Bash"},
                                              {"tool_use_id", "toolu_9"},
                                              {"tool_input", QJsonObject{{"command", QString(500, 'c')}}}});
    QCOMPARE(asked.value("id").toString(), "unknown");
    QCOMPARE(asked.value("ask_target").toString(), QString(300, 'c'));
    QCOMPARE(asked.value("waiting_for").toString(), QString(400, 'm'));
    QCOMPARE(asked.value("agent").toString(), "claude");
    const QJsonObject acted =
        send("PostToolUse", QJsonObject{{"session_id", QJsonValue()},
                                        {"tool_name", "Write"},
                                        {"tool_input", QJsonObject{{"path", QString(400, 'p')}}}});
    QCOMPARE(acted.value("last_action").toString(), "Write " + QString(294, 'p'));
    QVERIFY(QFileInfo::exists(m_home->paths().sessions() + "/unknown.json"));
}

void ReporterTest::sessionEndLeavesNothing()
{
    send("UserPromptSubmit", json(R"({"prompt":"hi"})"));
    QCOMPARE(QDir(m_home->paths().sessions()).entryList(QDir::Files | QDir::Hidden), QStringList{kSid + ".json"});
    QVERIFY(send("SessionEnd", {}).isEmpty());
    QVERIFY(QDir(m_home->paths().sessions()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

void ReporterTest::concurrentEventsNeverLeaveHalfAFile()
{
    // Many hooks for one session at once, with big records: whenever the file is there it is whole.
    const QString file = m_home->paths().sessions() + "/" + kSid + ".json";
    std::vector<std::unique_ptr<QProcess>> hooks;
    for (int i = 0; i < 16; ++i) {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(vaxo::test::scriptEnvironment(m_home->root()));
        process->start("/bin/bash", {m_home->paths().hookScript(), i % 2 ? "UserPromptSubmit" : "PostToolUse"});
        const QJsonObject payload{{"session_id", kSid},
                                  {"prompt", QString(300, QChar('a' + i))},
                                  {"tool_name", "Read"},
                                  {"tool_input", QJsonObject{{"file_path", QString(250, QChar('a' + i))}}}};
        process->write(QJsonDocument(payload).toJson());
        process->closeWriteChannel();
        hooks.push_back(std::move(process));
    }
    int reads = 0;
    const auto running = [&] {
        return std::any_of(hooks.begin(), hooks.end(), [](auto &p) { return p->state() != QProcess::NotRunning; });
    };
    while (running()) {
        const QByteArray bytes = TempHome::read(file);
        if (!bytes.isEmpty()) {
            ++reads;
            QVERIFY2(QJsonDocument::fromJson(bytes).isObject(), bytes.constData());
        }
        hooks.front()->waitForFinished(1);
        for (auto &p : hooks)
            p->waitForFinished(0);
    }
    for (auto &p : hooks)
        QCOMPARE(p->exitCode(), 0);
    QVERIFY(QJsonDocument::fromJson(TempHome::read(file)).isObject());
    QCOMPARE(QDir(m_home->paths().sessions()).entryList(QDir::Files | QDir::Hidden), QStringList{kSid + ".json"});
    qInfo("%d whole reads while the hooks ran", reads);
}

void ReporterTest::permissionRequestWithoutIdGetsOne()
{
    // Claude Code's permission requests carry no tool-call id: the reporter makes one that the
    // island can answer, different for each request.
    const QJsonObject payload{{"tool_name", "Bash"},
                              {"tool_input", QJsonObject{{"command", "touch f.txt"}, {"description", "d"}}},
                              {"permission_suggestions", QJsonArray{}}};
    const QString first = send("PermissionRequest", payload).value("ask_id").toString();
    const QString second = send("PermissionRequest", payload).value("ask_id").toString();
    const QRegularExpression shape("^perm_[0-9a-f]{24}$");
    QVERIFY2(shape.match(first).hasMatch(), qPrintable(first));
    QVERIFY2(shape.match(second).hasMatch(), qPrintable(second));
    QVERIFY(first != second);
    QCOMPARE(vaxo::AskDecision::sanitised(first), first);
    // An empty id counts as none.
    QVERIFY(send("PermissionRequest", QJsonObject{{"tool_use_id", ""}}).value("ask_id").toString().startsWith("perm_"));
    // A notification names no request of its own.
    QCOMPARE(send("Stop", {}).value("ask_id"), QJsonValue());
    QCOMPARE(send("Notification", {}).value("ask_id"), QJsonValue());
}

void ReporterTest::terminalComesFromTheNearestAncestorWithOne()
{
    // Claude Code starts hooks in a session of their own, without a terminal, with the payload on
    // a pipe: the terminal is the one of the process that runs them.
    const QString payload = m_home->root() + "/payload.json";
    TempHome::write(payload, QJsonDocument(QJsonObject{{"session_id", kSid}}).toJson());
    const char *parent = R"(
import os, pty, subprocess, sys
master, slave = pty.openpty()
name = os.ttyname(slave)
pid = os.fork()
if pid == 0:
    os.setsid()
    os.close(os.open(name, os.O_RDWR))  # becomes this session's terminal
    with open(sys.argv[2], "rb") as payload:
        subprocess.run(["/bin/sh", "-c", 'exec setsid /bin/bash "$0" Stop', sys.argv[1]], stdin=payload,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os._exit(0)
os.waitpid(pid, 0)
print(name)
)";
    QProcess process;
    process.setProcessEnvironment(vaxo::test::scriptEnvironment(m_home->root()));
    process.start("/usr/bin/python3", {"-c", parent, m_home->paths().hookScript(), payload});
    QVERIFY(process.waitForFinished(60'000));
    const QString terminal = QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    QVERIFY2(terminal.startsWith("/dev/pts/"), qPrintable(terminal + process.readAllStandardError()));
    QCOMPARE(vaxo::test::readSession(m_home->paths(), kSid).value("tty").toString(), terminal);
}

void ReporterTest::hookEndsQuietlyWithoutItsReporter()
{
    // Any other status would be read by Claude Code as the hook's verdict (2 blocks a prompt).
    QVERIFY(QFile::remove(m_home->paths().reporterScript()));
    const auto result = runHook(m_home->paths(), "UserPromptSubmit", R"({"prompt":"go"})");
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out + result.err, QByteArray());
}

QTEST_GUILESS_MAIN(ReporterTest)
#include "ReporterTest.moc"
