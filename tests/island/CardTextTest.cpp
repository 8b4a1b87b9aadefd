#include "island/CardText.h"
#include "agents/StatusLine.h"

#include "TestTable.h"

#include <QJsonDocument>
#include <QTest>

using namespace vaxo;

// The words the island shows, as tables.
class CardTextTest : public QObject {
    Q_OBJECT
private slots:
    void durationText_data()
    {
        QTest::addColumn<double>("ago");
        QTest::addColumn<QString>("text");
        QTest::newRow("just started") << 59.9 << "now";
        QTest::newRow("in the future") << -300.0 << "now";
        QTest::newRow("seven minutes") << 7 * 60 + 59.0 << "7m";
        QTest::newRow("59:59") << 59 * 60 + 59.0 << "59m";
        QTest::newRow("an hour") << 3600.0 << "1h 0m";
        QTest::newRow("2h 15m") << 2 * 3600 + 15 * 60 + 30.0 << "2h 15m";
        QTest::newRow("a day") << 26 * 3600.0 << "26h 0m";
    }
    void durationText()
    {
        QFETCH(double, ago);
        QFETCH(QString, text);
        const double now = 1'700'000'000;
        QCOMPARE(CardText::durationText(now - ago, now), text);
    }

    void counts()
    {
        QCOMPARE(CardText::moreRunning(0), QString());
        QCOMPARE(CardText::moreRunning(3), QStringLiteral("+3 more running"));
        QCOMPARE(CardText::moreWaiting(-1), QString());
        QCOMPARE(CardText::moreWaiting(2), QStringLiteral("+2 more waiting on you"));
        QCOMPARE(CardText::waitedText(59), QString());
        QCOMPARE(CardText::waitedText(61 * 60), QStringLiteral("waiting 1h 1m"));
        const AgentTasks tasks{3, 1, 2, {}};
        QCOMPARE(CardText::taskSummary(tasks), QStringLiteral("1 in progress \u00B7 2 open"));
        QCOMPARE(CardText::tasksCompleted(tasks), QStringLiteral("3 completed"));
    }

    void actionLine_data()
    {
        QTest::addColumn<QByteArray>("action");
        QTest::addColumn<QByteArray>("tool");
        QTest::addColumn<QByteArray>("rest");
        test::rows(R"(
            tool and command   | Bash npm test -- auth | Bash  | npm test -- auth
            tool alone         | TodoWrite            | TodoWrite |
            several spaces     | Edit  src/a b.cpp    | Edit  |  src/a b.cpp
        )");
    }
    void actionLine()
    {
        QFETCH(QByteArray, action);
        QFETCH(QByteArray, tool);
        QFETCH(QByteArray, rest);
        const CardText::ActionLine line = CardText::actionLine(QString::fromUtf8(action));
        QCOMPARE(line.tool, QString::fromUtf8(tool));
        QCOMPARE(line.rest.trimmed(), QString::fromUtf8(rest));
    }

    void stopFailure()
    {
        QCOMPARE(CardText::stopFailure("rate_limit"), (CardText::ActionLine{"Stopped", "rate limit reached"}));
        QCOMPARE(CardText::stopFailure("max_output_tokens").rest, "reply too long");
        QCOMPARE(CardText::stopFailure("unknown").rest, "API error");
        QCOMPARE(CardText::stopFailure("a kind of a later version").rest, "API error");
    }

    // What the agent offered, as Claude Code sends it, and the third button's words.
    void alwaysAllow_data()
    {
        QTest::addColumn<QByteArray>("suggestions");
        QTest::addColumn<QByteArray>("words");
        test::rows(R"(
            a folder, and edits      | [{"type":"addDirectories","directories":["/home/ada/proj"],"destination":"session"},{"type":"setMode","mode":"acceptEdits","destination":"session"}] | Always allow access to proj/
            two folders              | [{"type":"addDirectories","directories":["/srv/a/","/srv/b"]}] | Always allow access to a/ and b/
            a command prefix         | [{"type":"addRules","rules":[{"toolName":"Bash","ruleContent":"npm test:*"}],"behavior":"allow","destination":"localSettings"}] | Don’t ask again for npm test commands
            three commands           | [{"type":"addRules","rules":[{"toolName":"Bash","ruleContent":"git add *"},{"toolName":"Bash","ruleContent":"make:*"},{"toolName":"Bash","ruleContent":"ls"}],"behavior":"allow"}] | Don’t ask again for git add, make and ls commands
            a whole tool             | [{"type":"addRules","rules":[{"toolName":"WebFetch"}],"behavior":"allow"}] | Don’t ask again for WebFetch commands
            folder and command       | [{"type":"addDirectories","directories":["/tmp/x"]},{"type":"addRules","rules":[{"toolName":"Bash","ruleContent":"touch:*"}],"behavior":"allow"}] | Allow access to x/ and touch commands
            edits alone              | [{"type":"setMode","mode":"acceptEdits","destination":"session"}] | Allow all edits this session
            a deny rule              | [{"type":"addRules","rules":[{"toolName":"Bash"}],"behavior":"deny"}] | Always allow
            the root folder          | [{"type":"addDirectories","directories":["/"]}] | Always allow access to /
            something new            | [{"type":"replaceRules","rules":[]}] | Always allow
            not objects              | [1,"x",null] | Always allow
        )");
    }
    void alwaysAllow()
    {
        QFETCH(QByteArray, suggestions);
        QFETCH(QByteArray, words);
        QCOMPARE(CardText::alwaysAllow(QJsonDocument::fromJson(suggestions).array()), QString::fromUtf8(words));
    }

    void statusLine_data()
    {
        QTest::addColumn<QStringList>("waiting");
        QTest::addColumn<QStringList>("working");
        QTest::addColumn<QString>("finished");
        QTest::addColumn<bool>("idle");
        QTest::addColumn<QString>("line");
        const QStringList none;
        QTest::newRow("one waits") << QStringList{"my-app_build"} << none << "" << false
                                   << "my app build needs your permission.";
        QTest::newRow("two wait") << QStringList{"a", "b"} << QStringList{"c"} << "d" << false
                                  << "Two agents need your permission.";
        QTest::newRow("hyphens only") << QStringList{"---"} << none << "" << false
                                      << "A session needs your permission.";
        QTest::newRow("finished") << none << QStringList{"a"} << "web_app" << false << "web app just finished.";
        QTest::newRow("nothing") << none << none << "" << false << "Nothing running.";
        QTest::newRow("all quiet") << none << none << "" << true << "All quiet.";
        QTest::newRow("one works") << none << QStringList{" api "} << "" << false << "api is working.";
        QTest::newRow("three") << none << QStringList{"a", "b", "c"} << "" << false << "Three agents running.";
        QStringList ten;
        for (int i = 0; i < 10; ++i)
            ten << QString::number(i);
        QTest::newRow("ten") << none << ten << "" << false << "10 agents running.";
    }
    void statusLine()
    {
        QFETCH(QStringList, waiting);
        QFETCH(QStringList, working);
        QFETCH(QString, finished);
        QFETCH(bool, idle);
        QFETCH(QString, line);
        const std::optional<QString> justFinished = finished.isEmpty() ? std::nullopt : std::optional(finished);
        QCOMPARE(StatusLine::compose(waiting, working, justFinished, idle), line);
    }
};

QTEST_GUILESS_MAIN(CardTextTest)
#include "CardTextTest.moc"
