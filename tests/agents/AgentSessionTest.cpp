#include "agents/AgentSession.h"
#include "agents/SessionDirectory.h"

#include <QTest>

using vaxo::AgentSession;

class AgentSessionTest : public QObject {
    Q_OBJECT
private slots:
    void decoding_data();
    void decoding();
    void fullRecordRoundTrips();
    void answerable_data();
    void answerable();
    void sortOrder();
};

namespace {
const QByteArray kMinimal = R"("id":"a","agent":"claude","label":"proj","status":"working")";
QByteArray object(const QByteArray &extra = {})
{
    return "{" + kMinimal + (extra.isEmpty() ? QByteArray() : "," + extra) + "}";
}
} // namespace

void AgentSessionTest::decoding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("minimal") << object() << true;
    QTest::newRow("all optional null") << object(R"("started":null,"updated":null,"tasks":null,"ask_id":null)") << true;
    QTest::newRow("unknown keys ignored") << object(R"("colour":[1,2],"x":{})") << true;
    QTest::newRow("integer times") << object(R"("started":10,"updated":2000000000)") << true;
    QTest::newRow("counts written as 3.0") << object(R"("tasks":{"done":3.0,"in_progress":0,"open":1,"items":[]})") << true;
    QTest::newRow("not json") << QByteArray("{\"id\":") << false;
    QTest::newRow("array") << QByteArray("[]") << false;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("missing label") << QByteArray(R"({"id":"a","agent":"c","status":"working"})") << false;
    QTest::newRow("null status") << QByteArray(R"({"id":"a","agent":"c","label":"l","status":null})") << false;
    QTest::newRow("numeric id") << QByteArray(R"({"id":1,"agent":"c","label":"l","status":"working"})") << false;
    QTest::newRow("text as number") << object(R"("cwd":5)") << false;
    QTest::newRow("updated as text") << object(R"("updated":"5")") << false;
    QTest::newRow("started as bool") << object(R"("started":true)") << false;
    QTest::newRow("tasks without open") << object(R"("tasks":{"done":1,"in_progress":0,"items":[]})") << false;
    QTest::newRow("tasks not object") << object(R"("tasks":[])") << false;
    QTest::newRow("fractional count") << object(R"("tasks":{"done":1.5,"in_progress":0,"open":0,"items":[]})") << false;
    QTest::newRow("item without status")
        << object(R"("tasks":{"done":0,"in_progress":0,"open":1,"items":[{"subject":"x"}]})") << false;
    QTest::newRow("item not object") << object(R"("tasks":{"done":0,"in_progress":0,"open":1,"items":["x"]})") << false;
}

void AgentSessionTest::decoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, accepted);
    QCOMPARE(AgentSession::decode(bytes).has_value(), accepted);
}

void AgentSessionTest::fullRecordRoundTrips()
{
    const QByteArray bytes = R"({"id":"s1","agent":"codex","label":"p","status":"odd","started":1.5,"updated":2.25,
        "last_prompt":"fix it","last_action":"Bash ls","waiting_for":"w","cwd":"/p","host_bundle":"h",
        "term_app":"kitty","term_session":"ts","tty":"/dev/pts/3","ask_tool":"Bash","ask_target":"rm x","ask_id":"t1",
        "tasks":{"done":1,"in_progress":2,"open":3,"items":[{"subject":"a","status":"completed"}]}})";
    const auto s = AgentSession::decode(bytes);
    QVERIFY(s);
    QCOMPARE(s->status, QStringLiteral("odd"));
    QCOMPARE(s->updated, 2.25);
    QCOMPARE(*s->askTarget, QStringLiteral("rm x"));
    QCOMPARE(s->tasks->inProgress, 2);
    QCOMPARE(s->tasks->items.first().status, QStringLiteral("completed"));

    const QByteArray encoded = s->encode();
    QCOMPARE(AgentSession::decode(encoded), s);
    const auto minimal = AgentSession::decode(object());
    QVERIFY(minimal->encode().contains("\"ask_id\":null")); // every key is written, null when empty

    // Equality covers every field, task items included.
    AgentSession other = *s;
    other.tasks->items[0].subject = QStringLiteral("b");
    QVERIFY(other != *s);
}

void AgentSessionTest::answerable_data()
{
    QTest::addColumn<QByteArray>("extra");
    QTest::addColumn<bool>("answerable");
    QTest::newRow("waiting with id") << QByteArray(R"("status":"waiting","ask_id":"t")") << true;
    QTest::newRow("empty id") << QByteArray(R"("status":"waiting","ask_id":"")") << false;
    QTest::newRow("no id") << QByteArray(R"("status":"waiting")") << false;
    QTest::newRow("capital W") << QByteArray(R"("status":"Waiting","ask_id":"t")") << false;
    QTest::newRow("working with id") << QByteArray(R"("status":"working","ask_id":"t")") << false;
}

void AgentSessionTest::answerable()
{
    QFETCH(QByteArray, extra);
    QFETCH(bool, answerable);
    const auto s = AgentSession::decode(R"({"id":"a","agent":"c","label":"l",)" + extra + "}");
    QVERIFY(s);
    QCOMPARE(s->isAnswerable(), answerable);
}

void AgentSessionTest::sortOrder()
{
    auto make = [](const char *id, const char *status, std::optional<double> updated) {
        AgentSession s;
        s.id = QString::fromLatin1(id);
        s.status = QString::fromLatin1(status);
        s.updated = updated;
        return s;
    };
    QList<AgentSession> list{make("old-working", "working", 2e9),  make("no-time-wait", "waiting", {}),
                             make("tie-1", "done", 5),             make("wait-10", "waiting", 10),
                             make("wait-20", "waiting", 20),       make("tie-2", "done", 5),
                             make("new-working", "working", 3e9)};
    vaxo::SessionDirectory::sort(list);
    QStringList ids;
    for (const auto &s : list)
        ids << s.id;
    QCOMPARE(ids, (QStringList{"wait-20", "wait-10", "no-time-wait", "new-working", "old-working", "tie-1", "tie-2"}));
}

QTEST_GUILESS_MAIN(AgentSessionTest)
#include "AgentSessionTest.moc"
