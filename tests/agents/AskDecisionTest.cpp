#include "agents/AskDecision.h"
#include "FakeClock.h"
#include "ScriptRun.h"
#include "TempHome.h"

#include <QDir>
#include <QJsonDocument>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <sys/stat.h>

using vaxo::AskDecision;
using vaxo::test::TempHome;

// The island's answer and the reporter's wait for it, with the real reporter.
class AskDecisionTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void sanitised_data();
    void sanitised();
    void answerWritesOnePrivateFile();
    void emptyIdWritesNothing();
    void sweepRemovesOnlyOldEntries();
    void reporterAcceptsOnlyAFreshMatchingAnswer_data();
    void reporterAcceptsOnlyAFreshMatchingAnswer();
    void reporterWaitsForTheClick_data();
    void reporterWaitsForTheClick();
    void reporterSurvivesAnyInput_data();
    void reporterSurvivesAnyInput();

private:
    QProcessEnvironment reporterEnv(const QString &event, const QString &budget) const;
    QString decisions() const { return m_home->paths().decisions(); }

    std::unique_ptr<TempHome> m_home;
};

namespace {

const QString kAskId = QStringLiteral("toolu_01AbCdEf");
const QByteArray kAsk =
    R"({"session_id":"s1","tool_name":"Bash","tool_input":{"command":"make"},"tool_use_id":"toolu_01AbCdEf"})";

QJsonObject decisionOutput(const QString &behavior)
{
    return {{"hookSpecificOutput",
             QJsonObject{{"hookEventName", "PermissionRequest"}, {"decision", QJsonObject{{"behavior", behavior}}}}}};
}

} // namespace

void AskDecisionTest::init()
{
    m_home = std::make_unique<TempHome>();
}

QProcessEnvironment AskDecisionTest::reporterEnv(const QString &event, const QString &budget) const
{
    QProcessEnvironment env = vaxo::test::scriptEnvironment(m_home->root());
    env.insert("VAXO_EVENT", event);
    env.insert("VAXO_SESSIONS", m_home->paths().sessions());
    env.insert("VAXO_DECISIONS", decisions());
    env.insert("VAXO_ASK_TIMEOUT", budget);
    return env;
}

void AskDecisionTest::sanitised_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("expected");
    QTest::newRow("tool-use id") << "toolu_01AbC-9"
                                 << "toolu_01AbC-9";
    QTest::newRow("slash and dots") << "../a/b.c"
                                    << "___a_b_c";
    QTest::newRow("letters, marks and digits of any script") << "e\u0301t\u00e9_\u0663\u4e2d"
                                                             << "e\u0301t\u00e9_\u0663\u4e2d";
    QTest::newRow("one scalar outside the basic plane") << "a\U0001F600b"
                                                        << "a_b";
    QTest::newRow("space and symbols") << "a b+c%"
                                       << "a_b_c_";
    QTest::newRow("first 120 kept") << QString(130, 'x') << QString(120, 'x');
}

void AskDecisionTest::sanitised()
{
    QFETCH(QString, id);
    QFETCH(QString, expected);
    QCOMPARE(AskDecision::sanitised(id), expected);
}

void AskDecisionTest::answerWritesOnePrivateFile()
{
    vaxo::test::FakeClock clock(1'750'000'000.25);
    QDir().mkpath(decisions());
    QFile::setPermissions(decisions(), QFileDevice::Permissions(0x7755)); // 0755: made before, too open
    const AskDecision decision(decisions(), clock);
    decision.answer("a/b", true);
    clock.advance(1);
    decision.answer("a/b", false); // the second click wins

    QCOMPARE(QDir(decisions()).entryList(QDir::Files | QDir::Hidden), QStringList{"a_b.json"});
    QCOMPARE(TempHome::mode(decisions()), 0700);
    QCOMPARE(TempHome::mode(decisions() + "/a_b.json"), 0600);
    const QJsonObject written = QJsonDocument::fromJson(TempHome::read(decisions() + "/a_b.json")).object();
    QCOMPARE(written, (QJsonObject{{"id", "a/b"}, {"behavior", "deny"}, {"at", 1'750'000'001.25}}));
}

void AskDecisionTest::emptyIdWritesNothing()
{
    AskDecision(decisions(), vaxo::Clock::system()).answer(QString(), true);
    QVERIFY(QDir(decisions()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

void AskDecisionTest::sweepRemovesOnlyOldEntries()
{
    const double now = 1'750'000'000.0;
    const auto place = [&](const QString &name, double age) {
        const QString path = decisions() + "/" + name;
        TempHome::write(path, "{}");
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::fromMSecsSinceEpoch(qint64((now - age) * 1000)),
                                 QFileDevice::FileModificationTime));
    };
    place("old.json", 601);
    place(".left-over.tmp", 3600);
    place("fresh.json", 599);
    vaxo::test::FakeClock clock(now);
    AskDecision(decisions(), clock).sweep();
    QCOMPARE(QDir(decisions()).entryList(QDir::Files | QDir::Hidden), QStringList{"fresh.json"});
}

void AskDecisionTest::reporterAcceptsOnlyAFreshMatchingAnswer_data()
{
    QTest::addColumn<QString>("file");       // decision file name, under the decisions folder
    QTest::addColumn<QByteArray>("content"); // "%NOW" stands for the current time
    QTest::addColumn<QString>("printed");    // accepted behaviour, "" for nothing
    QTest::addColumn<bool>("fileStays");

    const QString own = kAskId + ".json";
    QTest::newRow("allow") << own << QByteArray(R"({"id":"toolu_01AbCdEf","behavior":"allow","at":%NOW})") << "allow"
                           << false;
    QTest::newRow("deny") << own << QByteArray(R"({"id":"toolu_01AbCdEf","behavior":"deny","at":%NOW})") << "deny"
                          << false;
    QTest::newRow("stale") << own << QByteArray(R"({"id":"toolu_01AbCdEf","behavior":"allow","at":%NOW-601})") << ""
                           << false;
    QTest::newRow("no time") << own << QByteArray(R"({"id":"toolu_01AbCdEf","behavior":"allow"})") << "" << false;
    QTest::newRow("wrong id") << own << QByteArray(R"({"id":"toolu_02","behavior":"allow","at":%NOW})") << "" << false;
    QTest::newRow("unknown behaviour") << own << QByteArray(R"({"id":"toolu_01AbCdEf","behavior":"ask","at":%NOW})")
                                       << "" << false;
    QTest::newRow("not an object") << own << QByteArray(R"(["allow"])") << "" << false;
    QTest::newRow("at not a number") << own << QByteArray(R"({"id":"toolu_01AbCdEf","behavior":"allow","at":"now"})")
                                     << "" << false;
    QTest::newRow("malformed") << own << QByteArray(R"({"id":"toolu_01AbCdEf","beh)") << "" << true;
    QTest::newRow("none within the budget") << "other.json" << QByteArray("{}") << "" << true;
}

void AskDecisionTest::reporterAcceptsOnlyAFreshMatchingAnswer()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, printed);
    QFETCH(bool, fileStays);

    const double now = vaxo::Clock::system().now();
    QByteArray bytes = content.replace("%NOW-601", QByteArray::number(now - 601, 'f', 3));
    bytes.replace("%NOW", QByteArray::number(now, 'f', 3));
    TempHome::write(decisions() + "/" + file, bytes);

    const auto result = vaxo::test::runReporter(kAsk, reporterEnv("PermissionRequest", "0.5"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.err, QByteArray());
    if (printed.isEmpty())
        QCOMPARE(result.out, QByteArray());
    else
        QCOMPARE(QJsonDocument::fromJson(result.out).object(), decisionOutput(printed));
    QCOMPARE(QFileInfo::exists(decisions() + "/" + file), fileStays);
}

void AskDecisionTest::reporterWaitsForTheClick_data()
{
    QTest::addColumn<QString>("budget");
    QTest::addColumn<QString>("askId");
    QTest::addColumn<QString>("printed");
    QTest::newRow("default budget") << "" << kAskId << "allow";
    QTest::newRow("unreadable budget counts as the default") << "abc" << kAskId << "allow";
    // The island writes "a_b.json"; the reporter looks for the raw id and is never answered.
    QTest::newRow("id that sanitising changes") << "1.5"
                                                << "a/b"
                                                << "";
}

void AskDecisionTest::reporterWaitsForTheClick()
{
    QFETCH(QString, budget);
    QFETCH(QString, askId);
    QFETCH(QString, printed);

    QProcess reporter;
    reporter.setProcessEnvironment(reporterEnv("PermissionRequest", budget));
    reporter.start("/usr/bin/python3", {"-I", "-S", vaxo::test::sourceReporter()});
    QJsonObject ask = QJsonDocument::fromJson(kAsk).object();
    ask.insert("tool_use_id", askId);
    reporter.write(QJsonDocument(ask).toJson());
    reporter.closeWriteChannel();

    // The session turns answerable before the reporter starts to wait; the click comes after.
    QTRY_COMPARE_WITH_TIMEOUT(vaxo::test::readSession(m_home->paths(), "s1").value("ask_id").toString(), askId, 30'000);
    AskDecision(decisions(), vaxo::Clock::system()).answer(askId, true);
    QTRY_COMPARE_WITH_TIMEOUT(reporter.state(), QProcess::NotRunning, 60'000);
    QCOMPARE(reporter.exitCode(), 0);
    const QByteArray out = reporter.readAllStandardOutput();
    if (printed.isEmpty())
        QCOMPARE(out, QByteArray());
    else
        QCOMPARE(QJsonDocument::fromJson(out).object(), decisionOutput(printed));
    QCOMPARE(QDir(decisions()).entryList(QDir::Files).isEmpty(), !printed.isEmpty());
}

void AskDecisionTest::reporterSurvivesAnyInput_data()
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
    QTest::newRow("string") << QByteArray("\"PermissionRequest\"");
    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("deep nesting") << QByteArray(200'000, '[');
    QTest::newRow("huge payload") << QJsonDocument(
                                         QJsonObject{{"session_id", "s1"},
                                                     {"tool_use_id", kAskId},
                                                     {"prompt", QString(8'000'000, 'x')},
                                                     {"tool_input", QJsonObject{{"command", QString(1 << 20, 'c')}}}})
                                         .toJson();
    QTest::newRow("wrong types") << QByteArray(
        R"({"session_id":7,"cwd":[],"tool_name":{},"tool_input":"x","prompt":null,
                                                  "message":1.5,"tool_use_id":true})");
    QTest::newRow("session id that is a path") << QByteArray(R"({"session_id":"../../x"})");
}

void AskDecisionTest::reporterSurvivesAnyInput()
{
    QFETCH(QByteArray, input);
    for (const QString event : {"PermissionRequest", "UserPromptSubmit", "SessionEnd", ""}) {
        const auto result = vaxo::test::runReporter(input, reporterEnv(event, "0.2"));
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.err, QByteArray());
    }
    // Whatever came in, nothing was written outside the sessions folder.
    QCOMPARE(QDir(m_home->root()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{"data"});
}

QTEST_GUILESS_MAIN(AskDecisionTest)
#include "AskDecisionTest.moc"
