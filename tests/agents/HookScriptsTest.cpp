#include "FakeClock.h"
#include "TempHome.h"
#include "TestTable.h"
#include "agents/AgentSession.h"
#include "agents/AskDecision.h"
#include "agents/HookInstaller.h"
#include "platform/linux/PidfdProcessWatcher.h"

#include <QDateTime>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <csignal>

using vaxo::AskDecision;
using vaxo::HookInstaller;
using vaxo::linux_platform::PidfdProcessWatcher;
using vaxo::test::rows;
using vaxo::test::TempHome;

// The installer, and the hook and reporter it installs run by bash and /usr/bin/python3 on payloads
// as Claude Code sends them, and the island's side of a permission answer.
class HookScriptsTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void installOverTime();
    void events_data();
    void events();
    void recordCarriesWhatTheEventDoesNotTouch();
    void permissionRequestWithoutIdGetsOne();
    void concurrentEventsNeverLeaveHalfAFile();
    void ancestorsGiveTheTerminalAndTheProcess();
    void hookEndsQuietlyWithoutItsReporter();
    void islandAnswers();
    void decisionFiles_data();
    void decisionFiles();
    void answeredInTheTerminal_data();
    void answeredInTheTerminal();
    void reporterSurvivesAnyInput_data();
    void reporterSurvivesAnyInput();

private:
    struct Run {
        int code = -1;
        QByteArray out, err;
    };
    QProcessEnvironment environment(const QString &budget = "0") const;
    Run reporter(const QByteArray &payload, const QString &event) const; // alone, as the hook starts it
    static Run run(const QStringList &args, const QByteArray &payload, const QProcessEnvironment &env);
    QJsonObject send(const QString &event, QJsonObject payload, const QProcessEnvironment &extra = {});
    QString sessions() const { return m_home->paths().sessions(); }
    QString decisions() const { return m_home->paths().decisions(); }
    QByteArray settings() const { return TempHome::read(m_installer->settingsFile()); }
    QString backup(const char *day) const { return m_installer->settingsFile() + ".bak-vaxo-island-" + day; }

    std::unique_ptr<TempHome> m_home;
    std::unique_ptr<vaxo::test::FakeClock> m_clock;
    std::unique_ptr<HookInstaller> m_installer;
};

namespace {
const QString kSid = QStringLiteral("5f0c3a1e-0000-4000-8000-000000000001");
const QByteArray kAsk = R"({"tool_name":"Bash","tool_input":{"command":"rm -rf build"},"tool_use_id":"toolu_01"})";
const QByteArray kSuggestions = R"([{"type":"setMode","mode":"acceptEdits"}])";
const QByteArray kOffer = kAsk.chopped(1) + R"(,"permission_suggestions":)" + kSuggestions + "}";
QJsonObject json(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}
// Every key of want has its value in record.
void expectFields(const QJsonObject &record, const QString &want)
{
    const QJsonObject fields = json(want);
    for (auto it = fields.begin(); it != fields.end(); ++it)
        QCOMPARE(record.value(it.key()), it.value());
}
QByteArray decisionOutput(const QByteArray &behavior)
{
    const QByteArray decision = behavior == "always"
                                    ? R"({"behavior":"allow","updatedPermissions":)" + kSuggestions + "}"
                                    : R"({"behavior":")" + behavior + "\"}";
    return R"({"hookSpecificOutput":{"hookEventName":"PermissionRequest","decision":)" + decision + "}}\n";
}
} // namespace

void HookScriptsTest::init()
{
    m_home = std::make_unique<TempHome>();
    m_clock = std::make_unique<vaxo::test::FakeClock>(1'750'000'000.0); // 2025-06-15 UTC
    m_installer = std::make_unique<HookInstaller>(m_home->paths(), m_home->root(), *m_clock);
    m_installer->writeScript();
}

QProcessEnvironment HookScriptsTest::environment(const QString &budget) const
{
    QProcessEnvironment env;
    env.insert("PATH", "/usr/bin:/bin");
    env.insert("HOME", m_home->root());
    env.insert("VAXO_ASK_TIMEOUT", budget);
    return env;
}

HookScriptsTest::Run HookScriptsTest::reporter(const QByteArray &payload, const QString &event) const
{
    QProcessEnvironment env = environment("0.5");
    env.insert("VAXO_EVENT", event);
    env.insert("VAXO_SESSIONS", sessions());
    env.insert("VAXO_DECISIONS", decisions());
    return run({"/usr/bin/python3", "-I", "-S", m_home->paths().reporterScript()}, payload, env);
}

HookScriptsTest::Run HookScriptsTest::run(const QStringList &args, const QByteArray &payload,
                                          const QProcessEnvironment &env)
{
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(args.first(), args.mid(1));
    process.write(payload);
    process.closeWriteChannel();
    if (!process.waitForFinished(120'000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QJsonObject HookScriptsTest::send(const QString &event, QJsonObject payload, const QProcessEnvironment &extra)
{
    if (!payload.contains("session_id"))
        payload.insert("session_id", kSid);
    QProcessEnvironment env = environment();
    env.insert(extra);
    const Run result = run({"/bin/bash", m_home->paths().hookScript(), event}, QJsonDocument(payload).toJson(), env);
    // The hook's standard output is Claude Code's: nothing may appear there but a decision.
    [&] {
        QCOMPARE(result.code, 0);
        QCOMPARE(result.out + result.err, QByteArray());
    }();
    const QString id = payload.value("session_id").isString() ? payload.value("session_id").toString() : "unknown";
    const QByteArray written = TempHome::read(sessions() + "/" + id + ".json");
    if (!written.isEmpty()) // every record written is one the island accepts
        [&] { QVERIFY2(vaxo::AgentSession::decode(written), written.constData()); }();
    return json(written);
}

void HookScriptsTest::installOverTime()
{
    // Without ~/.claude only the scripts are written.
    QVERIFY(QFile::remove(m_home->paths().hookScript()));
    QTest::ignoreMessage(QtInfoMsg, "[island] no ~/.claude \u2014 skipping hook install until Claude Code is set up");
    m_installer->installIfNeeded();
    QVERIFY(!QFileInfo::exists(m_installer->claudeFolder()));
    QCOMPARE(TempHome::mode(m_home->paths().hookScript()), 0755); // Claude Code runs it by its path
    QCOMPARE(TempHome::read(m_home->paths().reporterScript()),
             TempHome::read(qEnvironmentVariable("VAXO_SOURCE_DIR") + "/src/agents/scripts/island-report.py"));
    QCOMPARE(m_installer->hookCommand("Stop"), '"' + m_home->paths().hookScript() + "\" Stop"); // a space in it

    // Claude Code's settings lose our hooks later the same day: the morning's backup stays.
    for (const char *text : {R"({"first": true})", R"({"second": true})"}) {
        TempHome::write(m_installer->settingsFile(), text);
        QVERIFY(m_installer->mergeSettings());
        m_clock->advance(3600);
    }
    QVERIFY(settings().contains("\"second\": true"));
    QCOMPARE(TempHome::read(backup("2025-06-15")), R"({"first": true})");
    TempHome::write(m_installer->settingsFile(), R"({"third": true})");
    m_clock->advance(86400);
    QVERIFY(m_installer->mergeSettings());
    QCOMPARE(TempHome::read(backup("2025-06-16")), R"({"third": true})");

    // All seven registered by hand in a layout of our own, our command inside a longer one: left alone.
    QJsonObject hooks;
    for (const QString &event : HookInstaller::events()) {
        const QString command = "nice " + m_installer->hookCommand(event);
        hooks.insert(event, QJsonArray{QJsonObject{{"hooks", QJsonArray{QJsonObject{{"command", command}}}}}});
    }
    const QByteArray mine = QJsonDocument(QJsonObject{{"hooks", hooks}}).toJson(QJsonDocument::Compact) + "\n";
    TempHome::write(m_installer->settingsFile(), mine);
    m_clock->advance(86400);
    m_installer->installIfNeeded();
    QCOMPARE(settings(), mine);
    QCOMPARE(QDir(m_installer->claudeFolder()).entryList(QDir::Files).size(), 3); // and no third backup
}

void HookScriptsTest::events_data()
{
    QTest::addColumn<QByteArray>("before"); // "ask", "offer", "prompt", "tool" or ""
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QByteArray>("expected"); // fields of the record afterwards; "" for no file at all
    rows(
        R"(
prompt                     |        | UserPromptSubmit  | {"prompt":"fix it"} | {"status":"working","last_prompt":"fix it","waiting_for":null}
stop                       | tool   | Stop              | {} | {"status":"done","last_action":null,"waiting_for":null}
permission request         |        | PermissionRequest | )" +
        kAsk +
        R"( | {"status":"waiting","waiting_for":"permission","ask_tool":"Bash","ask_target":"rm -rf build","ask_id":"toolu_01"}
notification with tool     | ask    | Notification      | {"message":"Edit?","tool_name":"Edit","tool_input":{"file_path":"/a.c","url":"x"}} | {"status":"waiting","waiting_for":"Edit?","ask_tool":"Edit","ask_target":"/a.c","ask_id":null}
bare notification keeps    | ask    | Notification      | {"message":"Allow?","notification_type":"permission_prompt"} | {"status":"waiting","waiting_for":"Allow?","ask_tool":"Bash","ask_target":"rm -rf build","ask_id":"toolu_01"}
bare notification, working | prompt | Notification      | {} | {"status":"waiting","waiting_for":"needs your answer","ask_tool":null,"ask_id":null}
tool use clears question   | ask    | PostToolUse       | {"tool_name":"Edit","tool_input":{"command":"c","file_path":"/src/main.c\n"}} | {"status":"working","waiting_for":null,"last_action":"Edit /src/main.c","ask_tool":null,"ask_target":null,"ask_id":null}
tool use by pattern        |        | PostToolUse       | {"tool_name":"Grep","tool_input":{"pattern":"TODO"}} | {"status":"working","last_action":"Grep TODO"}
other event drops question | ask    | SubagentStop      | {} | {"status":"waiting","waiting_for":"permission","ask_id":null}
label from cwd             |        | Stop              | {"cwd":"/home/ada/island/"} | {"label":"island","cwd":"/home/ada/island/"}
root folder label          |        | Stop              | {"cwd":"/"} | {"label":"session"}
session end leaves no file | ask    | SessionEnd        | {} |
idle reminder changes none | prompt | Notification      | {"message":"Claude is waiting for your input","notification_type":"idle_prompt"} | {"status":"working","waiting_for":null}
idle reminder after a stop | tool   | Notification      | {"notification_type":"idle_prompt"} | {"status":"working","last_action":"Read a"}
a question from a tool     | prompt | Notification      | {"message":"Pick one","notification_type":"elicitation_dialog"} | {"status":"waiting","waiting_for":"Pick one"}
failed turn                | tool   | StopFailure       | {"error":"rate_limit","last_assistant_message":"API Error: 429"} | {"status":"done","waiting_for":"rate_limit","last_action":null,"ask_id":null}
failed turn without a kind | ask    | StopFailure       | {"error":7} | {"status":"done","waiting_for":"unknown","ask_id":null,"ask_suggestions":null}
request with an offer      |        | PermissionRequest | {"tool_name":"Bash","permission_suggestions":[{"type":"setMode","mode":"acceptEdits"}]} | {"status":"waiting","ask_suggestions":[{"type":"setMode","mode":"acceptEdits"}]}
request with no offer      |        | PermissionRequest | {"tool_name":"Bash","permission_suggestions":[]} | {"status":"waiting","ask_suggestions":null}
offer stays with question  | offer  | Notification      | {"message":"Allow?","notification_type":"permission_prompt"} | {"status":"waiting","ask_suggestions":[{"type":"setMode","mode":"acceptEdits"}]}
offer goes with question   | offer  | PostToolUse       | {"tool_name":"Bash"} | {"status":"working","ask_suggestions":null})");
}

void HookScriptsTest::events()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, event);
    QFETCH(QByteArray, payload);
    QFETCH(QByteArray, expected);
    if (before == "ask")
        send("PermissionRequest", json(kAsk));
    else if (before == "offer")
        send("PermissionRequest", json(kOffer));
    else if (before == "prompt")
        send("UserPromptSubmit", json(R"({"prompt":"p"})"));
    else if (before == "tool")
        send("PostToolUse", json(R"({"tool_name":"Read","tool_input":{"path":"a"}})"));
    const QJsonObject record = send(event, json(payload));
    if (expected.isEmpty()) // not even a temporary file
        QCOMPARE(QDir(sessions()).entryList(QDir::Files | QDir::Hidden | QDir::System), QStringList());
    else
        QCOMPARE(record.keys().join(' '), "agent ask_id ask_suggestions ask_target ask_tool cwd host_bundle id label "
                                          "last_action last_prompt process started status tasks term_app term_session "
                                          "tty updated waiting_for");
    expectFields(record, expected);
}

void HookScriptsTest::recordCarriesWhatTheEventDoesNotTouch()
{
    // An earlier writer's fields survive, and the terminal's variables fill what they name.
    TempHome::write(sessions() + "/" + kSid + ".json", R"({"id":"x","agent":"codex","started":12.5,
        "tasks":{"done":1,"in_progress":0,"open":2,"items":[]},"cwd":"/w/old","tty":"/dev/pts/9","term_app":"kitty"})");
    QProcessEnvironment terminal;
    terminal.insert("TERM_PROGRAM", "WezTerm");
    terminal.insert("ITERM_SESSION_ID", "w0t1:");
    terminal.insert("TERM_SESSION_ID", "ABC");
    const QJsonObject first = send("UserPromptSubmit", {{"prompt", QString(1000, QChar(0xe9))}}, terminal);
    expectFields(first, R"({"id":")" + kSid + R"(","agent":"codex","started":12.5,"tty":"/dev/pts/9",
        "tasks":{"done":1,"in_progress":0,"open":2,"items":[]},"term_app":"WezTerm","term_session":"w0t1:ABC"})");
    QVERIFY(first.value("updated").toDouble() > 1.7e9);
    QCOMPARE(first.value("cwd").toString(), QDir::currentPath()); // the hook's own folder comes before it
    QCOMPARE(first.value("last_prompt").toString(), QString(400, QChar(0xe9)));

    // The 300 cuts, and a session without an id.
    const QString ask = R"({"session_id":null,"message":"%1","tool_name":"Bash","tool_input":{"command":"%2"}})";
    const QJsonObject asked = send("PermissionRequest", json(ask.arg(QString(500, 'm'), QString(500, 'c'))));
    expectFields(asked, R"({"id":"unknown","agent":"claude"})");
    QCOMPARE(asked.value("ask_target").toString(), QString(300, 'c'));
    QCOMPARE(asked.value("waiting_for").toString(), QString(400, 'm'));
    const QString act = R"({"session_id":null,"tool_name":"Write","tool_input":{"path":"%1"}})";
    QCOMPARE(send("PostToolUse", json(act.arg(QString(400, 'p')))).value("last_action").toString(),
             "Write " + QString(294, 'p'));
}

void HookScriptsTest::permissionRequestWithoutIdGetsOne()
{
    // Claude Code's permission requests carry no tool-call id: the reporter makes one the island can
    // answer, different for each request; an empty id counts as none.
    const QJsonObject payload = json(R"({"tool_name":"Bash","tool_input":{"command":"touch f"}})");
    const QString first = send("PermissionRequest", payload).value("ask_id").toString();
    const QString second = send("PermissionRequest", payload).value("ask_id").toString();
    QVERIFY2(QRegularExpression("^perm_[0-9a-f]{24}$").match(first).hasMatch(), qPrintable(first));
    QVERIFY(second.startsWith("perm_") && second != first);
    QCOMPARE(AskDecision::sanitised(first), first);
    QVERIFY(send("PermissionRequest", {{"tool_use_id", ""}}).value("ask_id").toString().startsWith("perm_"));
}

void HookScriptsTest::concurrentEventsNeverLeaveHalfAFile()
{
    // Many hooks for one session at once, with big records: whenever the file is there it is whole.
    const QString file = sessions() + "/" + kSid + ".json";
    std::vector<std::unique_ptr<QProcess>> hooks;
    for (int i = 0; i < 16; ++i) {
        auto &process = hooks.emplace_back(std::make_unique<QProcess>());
        process->setProcessEnvironment(environment());
        process->start("/bin/bash", {m_home->paths().hookScript(), i % 2 ? "UserPromptSubmit" : "PostToolUse"});
        const QString text(300, QChar('a' + i));
        process->write(QString(R"({"session_id":"%1","prompt":"%2","tool_name":"Read","tool_input":{"path":"%2"}})")
                           .arg(kSid, text)
                           .toUtf8());
        process->closeWriteChannel();
    }
    const auto running = [&] {
        return std::any_of(hooks.begin(), hooks.end(), [](auto &p) { return p->state() != QProcess::NotRunning; });
    };
    while (running()) {
        const QByteArray bytes = TempHome::read(file);
        QVERIFY2(bytes.isEmpty() || QJsonDocument::fromJson(bytes).isObject(), bytes.constData());
        hooks.front()->waitForFinished(1);
        for (auto &p : hooks)
            p->waitForFinished(0);
    }
    for (auto &p : hooks)
        QCOMPARE(p->exitCode(), 0);
    QCOMPARE(QDir(sessions()).entryList(QDir::Files | QDir::Hidden), QStringList{kSid + ".json"});
    QCOMPARE(json(TempHome::read(file)).value("id").toString(), kSid);
}

void HookScriptsTest::ancestorsGiveTheTerminalAndTheProcess()
{
    // Claude Code starts the hook through a shell: the process is the nearest ancestor that is not one.
    const qint64 self = QCoreApplication::applicationPid();
    const QByteArray payload = R"({"session_id":")" + kSid.toUtf8() + "\"}";
    const QString script = m_home->paths().hookScript(), file = sessions() + "/" + kSid + ".json";
    for (const QStringList &command : {QStringList{"/bin/bash", script, "Stop"},
                                       QStringList{"/bin/sh", "-c", "/bin/bash \"$0\" Stop; true", script}}) {
        QCOMPARE(run(command, payload, environment()).code, 0);
        QCOMPARE(json(TempHome::read(file)).value("process").toObject(),
                 (QJsonObject{{"pid", self}, {"start", PidfdProcessWatcher::startOf(self)}}));
    }

    // It starts hooks in a session of their own, without a terminal, with the payload on a pipe: the
    // terminal is the one of the nearest ancestor with one. script(1) gives that ancestor one.
    TempHome::write(m_home->root() + "/payload.json", payload);
    const QString inner = "tty; setsid -w /bin/bash \"$0\" Stop <\"$1\" >/dev/null 2>&1";
    const QString command = "/bin/sh -c '" + inner + "' '" + script + "' '" + m_home->root() + "/payload.json'";
    const Run result = run({"/usr/bin/script", "-qec", command, "/dev/null"}, {}, environment());
    const QString terminal = QString::fromUtf8(result.out).trimmed();
    QVERIFY2(terminal.startsWith("/dev/pts/"), qPrintable(terminal + result.err));
    QCOMPARE(json(TempHome::read(file)).value("tty").toString(), terminal);
}

void HookScriptsTest::hookEndsQuietlyWithoutItsReporter()
{
    // Any other status would be read by Claude Code as the hook's verdict (2 blocks a prompt).
    QVERIFY(QFile::remove(m_home->paths().reporterScript()));
    const Run result = run({"/bin/bash", m_home->paths().hookScript(), "Stop"}, "{}", environment());
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out + result.err, QByteArray());
}

void HookScriptsTest::islandAnswers()
{
    // File names: letters, marks and digits of any script stay, anything else becomes "_", 120 at most.
    QCOMPARE(AskDecision::sanitised("../a/b c+%"), "___a_b_c__");
    QCOMPARE(AskDecision::sanitised("e\u0301t\u00e9_\u0663\u4e2d-"), "e\u0301t\u00e9_\u0663\u4e2d-");
    QCOMPARE(AskDecision::sanitised("a\U0001F600b"), "a_b");
    QCOMPARE(AskDecision::sanitised(QString(130, 'x')), QString(120, 'x'));

    QDir().mkpath(decisions());
    QFile::setPermissions(decisions(), QFileDevice::Permissions(0x7755)); // 0755: made before, too open
    const AskDecision decision(decisions(), *m_clock);
    decision.answer("", AskDecision::Answer::Allow); // no id, no file
    decision.answer("a/b", AskDecision::Answer::Allow);
    m_clock->advance(1.25);
    decision.answer("a/b", AskDecision::Answer::Deny); // the second click wins
    QCOMPARE(QDir(decisions()).entryList(QDir::Files | QDir::Hidden), QStringList{"a_b.json"});
    QCOMPARE(TempHome::mode(decisions()), 0700);
    QCOMPARE(TempHome::mode(decisions() + "/a_b.json"), 0600);
    QCOMPARE(json(TempHome::read(decisions() + "/a_b.json")),
             json(R"({"id":"a/b","behavior":"deny","at":1750000001.25})"));

    // The sweep removes answers no reporter took, after ten minutes, whatever their name.
    const std::pair<const char *, int> ages[]{{"a_b.json", 601}, {".left-over.tmp", 3600}, {"fresh.json", 599}};
    for (const auto &[name, age] : ages) {
        TempHome::write(decisions() + "/" + name, "{}");
        QFile file(decisions() + "/" + name);
        QVERIFY(file.open(QIODevice::ReadWrite) &&
                file.setFileTime(QDateTime::fromSecsSinceEpoch(qint64(m_clock->now()) - age),
                                 QFileDevice::FileModificationTime));
    }
    decision.sweep();
    QCOMPARE(QDir(decisions()).entryList(QDir::Files | QDir::Hidden), QStringList{"fresh.json"});
}

void HookScriptsTest::decisionFiles_data()
{
    QTest::addColumn<QByteArray>("askId");
    QTest::addColumn<QByteArray>("file");    // under the decisions folder
    QTest::addColumn<QByteArray>("content"); // "%NOW" stands for the current time
    QTest::addColumn<QByteArray>("printed"); // accepted behaviour, "" for nothing
    QTest::addColumn<QByteArray>("stays");   // whether the file is still there afterwards
    QTest::addColumn<QByteArray>("offer");   // whether the request offers something to remember
    // The island writes "a_b.json" for "a/b"; the reporter must look for no name but the raw id's.
    // "always" is printed as an allow with the request's own offer, and refused without one.
    rows(R"(
allow              | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"allow","at":%NOW}     | allow | |
deny               | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"deny","at":%NOW}      | deny  | |
stale              | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"allow","at":%NOW-601} |       | |
no time            | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"allow"}               |       | |
wrong id           | toolu_1 | toolu_1.json | {"id":"toolu_2","behavior":"allow","at":%NOW}     |       | |
unknown behaviour  | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"ask","at":%NOW}       |       | |
not an object      | toolu_1 | toolu_1.json | ["allow"]                                         |       | |
at not a number    | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"allow","at":"1"}      |       | |
malformed          | toolu_1 | toolu_1.json | {"id":"toolu_1","beh                              |       | yes |
none in the budget | toolu_1 | other.json   | {}                                                |       | yes |
sanitising changes | a/b     | a_b.json     | {"id":"a/b","behavior":"allow","at":%NOW}         |       | yes |
always             | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"always","at":%NOW}    | always |    | yes
always, no offer   | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"always","at":%NOW}    |        |    |
offer, plain allow | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"allow","at":%NOW}     | allow  |    | yes
always, stale      | toolu_1 | toolu_1.json | {"id":"toolu_1","behavior":"always","at":%NOW-601} |       |    | yes)");
}

void HookScriptsTest::decisionFiles()
{
    QFETCH(QByteArray, askId);
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, printed);
    QFETCH(QByteArray, stays);
    QFETCH(QByteArray, offer);
    const double now = QDateTime::currentMSecsSinceEpoch() / 1000.0;
    content.replace("%NOW-601", QByteArray::number(now - 601, 'f', 3)).replace("%NOW", QByteArray::number(now, 'f', 3));
    TempHome::write(decisions() + "/" + file, content);
    const Run result =
        reporter(QByteArray(offer.isEmpty() ? kAsk : kOffer).replace("toolu_01", askId), "PermissionRequest");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out + result.err, printed.isEmpty() ? QByteArray() : decisionOutput(printed));
    QCOMPARE(QFileInfo::exists(decisions() + "/" + file), !stays.isEmpty());
}

void HookScriptsTest::answeredInTheTerminal_data()
{
    QTest::addColumn<QByteArray>("change"); // what happens while the reporter waits
    QTest::addColumn<QByteArray>("after");  // the session's status then; "click" when it still waits
    // The request's transcript already holds an older refusal, and Claude Code's status of its
    // process says "waiting" (the hook's process stands in for Claude Code's). The session turns
    // answerable before the reporter starts to wait; a click comes after.
    rows(R"(
refused                    | transcript {"type":"user","message":{"role":"user","content":[{"type":"tool_result","content":"The user doesn't want to proceed with this tool use.","is_error":true,"tool_use_id":"toolu_9"}]}} | done
interrupted                | transcript {"type":"user","message":{"role":"user","content":[{"type":"text","text":"[Request interrupted by user for tool use]"}]}} | done
allowed, tool runs         | status {"sessionId":"%SID","procStart":"%START","status":"busy","statusUpdatedAt":%NOW} | working
refused, turn over         | status {"sessionId":"%SID","procStart":"%START","status":"idle","statusUpdatedAt":%NOW} | done
answered, hook ended       | term {"sessionId":"%SID","procStart":"%START","status":"idle","statusUpdatedAt":%NOW} | done
hook ended, nothing said   | term | working
another event came         | event PostToolUse | working
session ended              | event SessionEnd | gone
a result of another call   | transcript {"type":"user","message":{"role":"user","content":[{"type":"tool_result","content":"ok","tool_use_id":"toolu_8"}]}} | click
a refusal in a prompt      | transcript {"type":"user","message":{"role":"user","content":"The user doesn't want to proceed"}} | click
another session's status   | status {"sessionId":"other","procStart":"%START","status":"idle","statusUpdatedAt":%NOW} | click
a process reusing the id   | status {"sessionId":"%SID","procStart":"1","status":"idle","statusUpdatedAt":%NOW} | click)");
}

void HookScriptsTest::answeredInTheTerminal()
{
    QFETCH(QByteArray, change);
    QFETCH(QByteArray, after);
    const QString transcript = m_home->root() + "/transcript.jsonl";
    const QString status =
        m_home->root() + QString("/.claude/sessions/%1.json").arg(QCoreApplication::applicationPid());
    const QByteArray refusal =
        R"({"type":"user","message":{"content":[{"type":"tool_result","content":"The user doesn't want to proceed"}]}})";
    TempHome::write(transcript, refusal + "\n" + QByteArray(100'000, ' ') + "\n");
    const auto fill = [&](QByteArray text) {
        const QByteArray now = QByteArray::number(QDateTime::currentMSecsSinceEpoch());
        return text.replace("%SID", kSid.toUtf8())
            .replace("%START", PidfdProcessWatcher::startOf(QCoreApplication::applicationPid()).toUtf8())
            .replace("%NOW", now);
    };
    TempHome::write(status,
                    fill(R"({"sessionId":"%SID","procStart":"%START","status":"waiting","statusUpdatedAt":1})"));

    QProcess hook;
    hook.setProcessEnvironment(environment("abc")); // unreadable: the default two minutes, not none
    hook.setChildProcessModifier([] { ::setpgid(0, 0); });
    hook.start("/bin/bash", {m_home->paths().hookScript(), "PermissionRequest"});
    hook.write(kAsk.chopped(1) + R"(,"session_id":")" + kSid.toUtf8() + R"(","transcript_path":")" +
               transcript.toUtf8() + "\"}");
    hook.closeWriteChannel();
    const QString file = sessions() + "/" + kSid + ".json";
    QTRY_COMPARE_WITH_TIMEOUT(json(TempHome::read(file)).value("ask_id").toString(), QString("toolu_01"), 30'000);

    const QByteArray what = change.split(' ').first(), detail = change.mid(what.size() + 1);
    if (what == "transcript") {
        QFile log(transcript);
        QVERIFY(log.open(QIODevice::Append));
        log.write(detail.left(40)); // half a line first: it counts only once whole
        log.flush();
        log.write(detail.mid(40) + "\n");
    } else if (what == "status") {
        TempHome::replace(status, fill(detail));
    } else if (what == "term") { // as Claude Code ends the hook when its terminal got the answer
        if (change.contains(' '))
            TempHome::replace(status, fill(detail));
        QVERIFY(hook.processId() > 0); // not 0: that would end the test's own group
        ::kill(-pid_t(hook.processId()), SIGTERM);
    } else {
        send(QString::fromUtf8(detail), json(R"({"tool_name":"Bash"})"));
    }
    if (after == "click") // it still waits: the island's answer goes through
        AskDecision(decisions(), vaxo::Clock::system()).answer("toolu_01", AskDecision::Answer::Allow);
    QTRY_COMPARE_WITH_TIMEOUT(hook.state(), QProcess::NotRunning, 30'000);
    QCOMPARE(hook.readAllStandardOutput(), after == "click" ? decisionOutput("allow") : QByteArray());
    QVERIFY(QDir(decisions()).entryList(QDir::Files).isEmpty()); // a click's answer was taken
    if (after == "gone") {
        QVERIFY(!QFileInfo::exists(file)); // not written again
    } else if (after != "click") {
        // An ended hook's reporter may still be writing when the hook's shell is gone.
        QTRY_COMPARE_WITH_TIMEOUT(json(TempHome::read(file)).value("status").toString(), QString(after), 10'000);
        const QJsonObject record = json(TempHome::read(file));
        expectFields(record, R"({"status":")" + after + R"(","ask_id":null,"ask_tool":null,"waiting_for":null})");
        QCOMPARE(record.value("last_action").toString(), what == "event" ? "Bash" : ""); // the event's own record stays
    }
}

void HookScriptsTest::reporterSurvivesAnyInput_data()
{
    QTest::addColumn<QByteArray>("input");
    QByteArray noise(4096, '\0');
    QRandomGenerator generator(7);
    for (char &c : noise)
        c = char(generator.bounded(256));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("random bytes") << noise;
    QTest::newRow("invalid UTF-8") << QByteArray("{\"session_id\":\"s\xff\xfe\"}");
    QTest::newRow("array") << QByteArray("[1,2]");
    QTest::newRow("deep nesting") << QByteArray(200'000, '[');
    QTest::newRow("huge payload") << R"({"session_id":"s1","tool_use_id":"toolu_01","prompt":")" +
                                         QByteArray(8'000'000, 'x') + R"(","tool_input":{"command":")" +
                                         QByteArray(1 << 20, 'c') + "\"}}";
    QTest::newRow("wrong types") << QByteArray(R"({"session_id":7,"cwd":[],"tool_name":{},"tool_input":"x",
        "prompt":null,"message":1.5,"tool_use_id":true})");
    QTest::newRow("session id that is a path") << QByteArray(R"({"session_id":"../../x"})");
}

void HookScriptsTest::reporterSurvivesAnyInput()
{
    QFETCH(QByteArray, input);
    for (const QString event : {"PermissionRequest", "UserPromptSubmit", "SessionEnd", "Other"}) {
        const Run result = reporter(input, event);
        QCOMPARE(result.code, 0);
        QCOMPARE(result.out + result.err, QByteArray());
    }
    // Whatever came in, nothing was written outside the sessions folder.
    QCOMPARE(QDir(m_home->root() + "/data").entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
    QCOMPARE(QDir(m_home->paths().support).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             (QStringList{"island-hook.sh", "island-report.py", "sessions"}));
}

QTEST_GUILESS_MAIN(HookScriptsTest)
#include "HookScriptsTest.moc"
