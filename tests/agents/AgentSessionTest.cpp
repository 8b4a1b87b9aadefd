#include "agents/AgentSession.h"
#include "agents/LocalHookSource.h"
#include "agents/SessionDirectory.h"
#include "agents/SessionLiveness.h"
#include "platform/FolderWatcher.h"
#include "platform/PlatformServices.h"
#include "platform/linux/PidfdProcessWatcher.h"

#include "FakeClock.h"
#include "TempHome.h"
#include "TestTable.h"

#include <QDateTime>
#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using vaxo::AgentSession;
using vaxo::test::TempHome;

class AgentSessionTest : public QObject {
    Q_OBJECT
private slots:
    void decoding_data();
    void decoding();
    void fullRecordRoundTrips();
    void sortOrder();
    void loading();
    // The source over a real folder and a real inotify watch; time moves only by the fake clock.
    void watching();
    // Real processes and a real process watch: a closed session leaves, an interrupted turn ends.
    void livenessOfSessions();
};

namespace {
// "@" stands for the required keys but status.
QByteArray rec(const QByteArray &text)
{
    return QByteArray(text).replace("@", R"("id":"a","agent":"c","label":"l")");
}
QStringList ids(const QList<AgentSession> &list)
{
    QStringList ids;
    for (const auto &s : list)
        ids << s.id;
    return ids;
}
} // namespace

void AgentSessionTest::decoding_data()
{
    QTest::addColumn<QByteArray>("expected"); // -1 rejected, 0 accepted, 1 accepted and answerable
    QTest::addColumn<QByteArray>("bytes");    // "@" stands for the required keys but status
    vaxo::test::rows(R"(
minimal               |  0 | {@,"status":"working"}
nulls, unknown keys   |  0 | {@,"status":"working","started":null,"tasks":null,"ask_id":null,"x":[1]}
integers, 3.0 counts  |  0 | {@,"status":"working","updated":2000000000,"tasks":{"done":3.0,"in_progress":0,"open":1,"items":[]}}
not json              | -1 | {"id":
array                 | -1 | []
empty                 | -1 |
missing label         | -1 | {"id":"a","agent":"c","status":"working"}
numeric id            | -1 | {"id":1,"agent":"c","label":"l","status":"working"}
null status           | -1 | {@,"status":null}
text as number        | -1 | {@,"status":"working","cwd":5}
updated as text       | -1 | {@,"status":"working","updated":"5"}
started as bool       | -1 | {@,"status":"working","started":true}
tasks not object      | -1 | {@,"status":"working","tasks":[]}
tasks without open    | -1 | {@,"status":"working","tasks":{"done":1,"in_progress":0,"items":[]}}
fractional count      | -1 | {@,"status":"working","tasks":{"done":1.5,"in_progress":0,"open":0,"items":[]}}
item without status   | -1 | {@,"status":"working","tasks":{"done":0,"in_progress":0,"open":1,"items":[{"subject":"x"}]}}
item not object       | -1 | {@,"status":"working","tasks":{"done":0,"in_progress":0,"open":1,"items":["x"]}}
waiting with id       |  1 | {@,"status":"waiting","ask_id":"t"}
waiting, empty id     |  0 | {@,"status":"waiting","ask_id":""}
waiting, no id        |  0 | {@,"status":"waiting"}
capital W             |  0 | {@,"status":"Waiting","ask_id":"t"}
working with id       |  0 | {@,"status":"working","ask_id":"t"}
odd process, offer    |  1 | {@,"status":"waiting","ask_id":"t","process":{"pid":"7","start":1},"ask_suggestions":{}})");
}

void AgentSessionTest::decoding()
{
    QFETCH(QByteArray, expected);
    QFETCH(QByteArray, bytes);
    const auto s = AgentSession::decode(rec(bytes));
    QCOMPARE(s.has_value(), expected.toInt() >= 0);
    if (s)
        QCOMPARE(s->isAnswerable(), expected.toInt() == 1);
    if (s && bytes.contains("process")) // keys added later: a malformed value counts as none
        QVERIFY(!s->process && !s->askSuggestions && !s->offersAlways());
}

void AgentSessionTest::fullRecordRoundTrips()
{
    const auto s = AgentSession::decode(R"({"id":"s1","agent":"codex","label":"p","status":"odd","started":1.5,
        "updated":2.25,"last_prompt":"fix it","last_action":"Bash ls","waiting_for":"w","cwd":"/p","host_bundle":"h",
        "term_app":"kitty","term_session":"ts","tty":"/dev/pts/3","ask_tool":"Bash","ask_target":"rm x","ask_id":"t1",
        "tasks":{"done":1,"in_progress":2,"open":3,"items":[{"subject":"a","status":"completed"}]},
        "process":{"pid":4242,"start":"385863"},"ask_suggestions":[{"type":"setMode","mode":"acceptEdits"}]})");
    QVERIFY(s);
    QCOMPARE(s->process, (vaxo::AgentProcess{4242, "385863"}));
    QCOMPARE(s->askSuggestions->size(), 1);
    QCOMPARE(s->status, "odd");
    QCOMPARE(s->updated, 2.25);
    QCOMPARE(*s->askTarget, "rm x");
    QCOMPARE(s->tasks->inProgress, 2);
    QCOMPARE(s->tasks->items.first().status, "completed");
    QCOMPARE(AgentSession::decode(s->encode()), s);
    QVERIFY(AgentSession::decode(rec(R"({@,"status":"done"})"))
                ->encode()
                .contains("\"ask_id\":null")); // every key, null when empty
    AgentSession other = *s;                   // equality covers every field, task items included
    other.tasks->items[0].subject = "b";
    QVERIFY(other != *s);
}

void AgentSessionTest::sortOrder()
{
    auto make = [](const char *id, const char *status, std::optional<double> updated) {
        AgentSession s;
        s.id = id;
        s.status = status;
        s.updated = updated;
        return s;
    };
    QList<AgentSession> list{
        make("old-working", "working", 2e9), make("no-time-wait", "waiting", {}), make("tie-1", "done", 5),
        make("wait-10", "waiting", 10),      make("wait-20", "waiting", 20),      make("tie-2", "done", 5),
        make("new-working", "working", 3e9)};
    vaxo::SessionDirectory::sort(list);
    QCOMPARE(ids(list),
             (QStringList{"wait-20", "wait-10", "no-time-wait", "new-working", "old-working", "tie-1", "tie-2"}));
}

void AgentSessionTest::loading()
{
    TempHome home;
    const QString dir = home.paths().sessions();
    const double now = 1'700'000'000;
    auto file = [&](const QString &name, const QByteArray &bytes) { TempHome::write(dir + "/" + name, bytes); };
    QVERIFY(!vaxo::SessionDirectory(dir).load(now)); // the folder cannot be listed
    file("fresh.json",
         R"({"id":"fresh","agent":"c","label":"l","status":"done","updated":1699971200})"); // 28800 s: kept
    file("stale.json", R"({"id":"stale","agent":"c","label":"l","status":"done","updated":1699971199})");
    file("ageless.json", R"({"id":"ageless","agent":"c","label":"l","status":"done"})");
    file("broken.json", R"({"id":"broken","agent":)");
    file("x.json.tmp", R"({"id":"tmp","agent":"c","label":"l","status":"done"})");
    file("nolabel.json", R"({"id":"n","agent":"c","status":"done"})");
    QDir().mkpath(dir + "/folder.json"); // cannot be read as a file

    vaxo::SessionDirectory folder(dir);
    QCOMPARE(ids(*folder.load(now)), (QStringList{"fresh", "ageless"}));
    QVERIFY(!QFile::exists(dir + "/stale.json"));
    QVERIFY(QFile::exists(dir + "/broken.json") && QFile::exists(dir + "/nolabel.json")); // left for the writer

    // What the folder remembers never hides a rewrite: replaced, rewritten in place, or removed.
    TempHome::replace(dir + "/broken.json", R"({"id":"broken","agent":"c","label":"l","status":"waiting"})");
    QCOMPARE(ids(*folder.load(now)), (QStringList{"broken", "fresh", "ageless"}));
    file("broken.json", R"({"id":"broken","agent":"c","label":"l","status":"working"})");
    QCOMPARE(ids(*folder.load(now)), (QStringList{"fresh", "ageless", "broken"}));
    QFile::remove(dir + "/fresh.json");
    QCOMPARE(ids(*folder.load(now)), (QStringList{"ageless", "broken"}));
}

void AgentSessionTest::watching()
{
    TempHome home;
    vaxo::test::FakeClock clock;
    const QString dir = home.paths().sessions();
    vaxo::FolderWatcher *watcher = vaxo::PlatformServices::newFolderWatcher();
    vaxo::LocalHookSource source(dir, clock, watcher);
    QSignalSpy events(watcher, &vaxo::FolderWatcher::changed);
    QSignalSpy reloads(&source, &vaxo::LocalHookSource::reloaded);
    QList<QList<AgentSession>> delivered;
    const auto write = [&](double updated) {
        TempHome::replace(dir + "/a.json", QByteArray(R"({"id":"a","agent":"c","label":"p","status":"working",)") +
                                               R"("updated":)" + QByteArray::number(updated, 'f', 3) + "}");
    };
    // Returns once the watcher has reported the change just made.
    const auto waitForEvent = [&] {
        const qsizetype before = events.size();
        QTRY_VERIFY_WITH_TIMEOUT(events.size() > before, 5000);
    };

    // A file where the folder's parent should be: the folder can be neither made nor watched.
    TempHome blocked;
    TempHome::write(blocked.paths().support, "not a folder");
    vaxo::LocalHookSource unwatchable(blocked.paths().sessions(), clock, vaxo::PlatformServices::newFolderWatcher());
    QTest::ignoreMessage(QtWarningMsg, qPrintable("[island] cannot watch " + blocked.paths().sessions()));
    unwatchable.start([&](const QList<AgentSession> &list) { delivered << list; });

    QDir().mkpath(dir);
    QFile::setPermissions(dir, QFileDevice::Permissions(0x7755)); // 0755
    source.start([&](const QList<AgentSession> &list) { delivered << list; });
    QCOMPARE(TempHome::mode(dir), 0700);
    QVERIFY(QFile::exists(dir + "/.metadata_never_index"));
    QCOMPARE(delivered.size(), 0); // neither an empty folder nor an unwatchable one is a change

    // Ten writes 4 ms apart: one reload, 50 ms after the last, with the last write.
    const qsizetype reloadsAtStart = reloads.size();
    for (int i = 0; i < 10; ++i) {
        write(clock.now());
        waitForEvent();
        if (i < 9)
            clock.advance(0.004);
    }
    const double last = clock.now();
    clock.advance(vaxo::LocalHookSource::kCoalesceDelay - 0.001);
    QCOMPARE(reloads.size(), reloadsAtStart);
    clock.advance(0.002);
    QCOMPARE(reloads.size(), reloadsAtStart + 1);
    QCOMPARE(delivered.size(), 1);
    QCOMPARE(delivered.last().first().updated.value(), last); // fuzzy: tells writes 4 ms apart

    write(last); // the same bytes again: a reload, no delivery
    waitForEvent();
    clock.advance(vaxo::LocalHookSource::kCoalesceDelay);
    QCOMPARE(reloads.size(), reloadsAtStart + 2);
    QCOMPARE(delivered.size(), 1);

    QFile::remove(dir + "/a.json");
    waitForEvent();
    clock.advance(vaxo::LocalHookSource::kCoalesceDelay);
    QCOMPARE(delivered.size(), 2);
    QVERIFY(delivered.last().isEmpty());

    write(clock.now());
    waitForEvent(); // a reload is pending when stop comes
    source.stop();
    const qsizetype eventsAtStop = events.size();
    // A second watch sees the removal: by then a cancelled one would have reported it too.
    std::unique_ptr<vaxo::FolderWatcher> witness(vaxo::PlatformServices::newFolderWatcher());
    QSignalSpy seen(witness.get(), &vaxo::FolderWatcher::changed);
    QVERIFY(witness->watch(dir));
    QFile::remove(dir + "/a.json");
    QTRY_VERIFY_WITH_TIMEOUT(!seen.isEmpty(), 5000);
    QCoreApplication::processEvents();
    clock.advance(1);
    QCOMPARE(delivered.size(), 2);
    QCOMPARE(events.size(), eventsAtStop);
}

void AgentSessionTest::livenessOfSessions()
{
    using vaxo::linux_platform::PidfdProcessWatcher;
    TempHome home;
    const double now = QDateTime::currentMSecsSinceEpoch() / 1000.0;
    vaxo::test::FakeClock clock(now);
    const QString dir = home.paths().sessions(), claude = home.root() + "/claude-sessions";
    QProcess agent; // stands in for Claude Code
    agent.start("/bin/sleep", {"600"});
    QVERIFY(agent.waitForStarted());
    const qint64 pid = agent.processId(), self = QCoreApplication::applicationPid();
    const auto session = [&](const char *id, qint64 process, const QString &start) {
        const QString key = process ? QString(R"(,"process":{"pid":%1,"start":"%2"})").arg(process).arg(start) : "";
        TempHome::write(dir + "/" + id + ".json",
                        QString(R"({"id":"%1","agent":"claude","label":"l","status":"working",)"
                                R"("updated":%2%3})")
                            .arg(id)
                            .arg(now - 10, 0, 'f', 3)
                            .arg(key)
                            .toUtf8());
    };
    const auto claudeSays = [&](const char *status, double at) {
        TempHome::replace(claude + QString("/%1.json").arg(self),
                          QString(R"({"pid":%1,"sessionId":"esc","procStart":"%2","status":"%3","statusUpdatedAt":%4})")
                              .arg(self)
                              .arg(PidfdProcessWatcher::startOf(self), status)
                              .arg(qint64(at * 1000))
                              .toUtf8());
    };
    session("open", pid, PidfdProcessWatcher::startOf(pid));
    session("reused", pid, "1"); // the id now names another process: the session's is gone
    session("plain", 0, {});     // no process recorded: only its own events tell
    session("esc", self, PidfdProcessWatcher::startOf(self));
    claudeSays("busy", now - 20); // before the session's last event: says nothing

    auto *liveness = new vaxo::SessionLiveness(dir, vaxo::PlatformServices::newProcessWatcher(), claude,
                                               vaxo::PlatformServices::newFolderWatcher());
    QSignalSpy statusChanges(liveness, &vaxo::SessionLiveness::statusChanged);
    vaxo::LocalHookSource source(dir, clock, vaxo::PlatformServices::newFolderWatcher(), liveness);
    QMap<QString, QString> statuses;
    source.start([&](const QList<AgentSession> &list) {
        statuses.clear();
        for (const AgentSession &s : list)
            statuses.insert(s.id, s.status);
    });
    using Statuses = QMap<QString, QString>;
    QCOMPARE(statuses, (Statuses{{"open", "working"}, {"plain", "working"}, {"esc", "working"}}));
    QVERIFY(!QFile::exists(dir + "/reused.json"));

    // Esc: no hook runs, but Claude Code calls its process idle.
    claudeSays("idle", now - 5);
    QTRY_VERIFY_WITH_TIMEOUT(!statusChanges.isEmpty(), 5000);
    clock.advance(vaxo::LocalHookSource::kCoalesceDelay);
    QCOMPARE(statuses.value("esc"), "done");

    // The terminal closes: the agent's session goes, the others stay.
    agent.kill();
    QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(dir + "/open.json"), 5000);
    QTRY_VERIFY_WITH_TIMEOUT((clock.advance(vaxo::LocalHookSource::kCoalesceDelay), !statuses.contains("open")), 5000);
    QCOMPARE(statuses, (Statuses{{"plain", "working"}, {"esc", "done"}}));
    agent.waitForFinished();
}

QTEST_GUILESS_MAIN(AgentSessionTest)
#include "AgentSessionTest.moc"
