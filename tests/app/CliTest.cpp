#include "app/Cli.h"

#include <QProcess>
#include <QTest>

using vaxo::Cli;

class CliTest : public QObject {
    Q_OBJECT
private slots:
    void wordsSelectTheAnswer_data();
    void wordsSelectTheAnswer();
    void helpTextIsExact();
    void programPrintsWithOneTrailingNewline();
};

namespace {
const vaxo::CliFiles kFiles{QStringLiteral("~/.local/share/VAXO Island/sessions"),
                            QStringLiteral("~/.local/share/VAXO Island/Face")};
}

void CliTest::wordsSelectTheAnswer_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("expected"); // "help", "version" or "start"
    QTest::newRow("none") << QStringList{} << "start";
    QTest::newRow("-h") << QStringList{"-h"} << "help";
    QTest::newRow("help word") << QStringList{"help"} << "help";
    QTest::newRow("--help") << QStringList{"--help"} << "help";
    QTest::newRow("-v") << QStringList{"-v"} << "version";
    QTest::newRow("--build") << QStringList{"--build"} << "version";
    QTest::newRow("help wins over version") << QStringList{"--version", "-h"} << "help";
    QTest::newRow("unknown is ignored") << QStringList{"--frobnicate"} << "start";
    QTest::newRow("unknown beside version") << QStringList{"x", "--version"} << "version";
    QTest::newRow("whole words only") << QStringList{"--helpme", "-vv"} << "start";
}

void CliTest::wordsSelectTheAnswer()
{
    QFETCH(QStringList, args);
    QFETCH(QString, expected);
    const auto answer = Cli::response(args, QStringLiteral("1.2.3"), kFiles);
    if (expected == "start")
        QVERIFY(!answer);
    else if (expected == "version")
        QCOMPARE(*answer, QStringLiteral("VAXO Island 1.2.3"));
    else
        QCOMPARE(*answer, Cli::usage(QStringLiteral("1.2.3"), kFiles));
}

void CliTest::helpTextIsExact()
{
    const QString text = Cli::usage(std::nullopt, kFiles);
    const QStringList lines = text.split(QLatin1Char('\n'));
    QCOMPARE(lines.first(), QStringLiteral("VAXO Island (development build, no bundle)"));
    QCOMPARE(lines.at(1), QStringLiteral("Your coding agents, in the notch."));
    QCOMPARE(lines.at(2), QString());
    QVERIFY(text.contains(QStringLiteral("no Dock icon \u2014\nit hangs off the notch")));
    QVERIFY(text.contains(
        QStringLiteral("\nSUMMON\n  Alt+Super+I    show Vaxo on her own, under the notch; again to dismiss\n")));
    QVERIFY(text.contains(QStringLiteral("\nFILES\n  ~/.local/share/VAXO Island/sessions\n      one JSON file")));
    QVERIFY(text.contains(QStringLiteral("  ~/.local/share/VAXO Island/Face\n      drop your own")));
    QVERIFY(text.endsWith(QStringLiteral("per\n      mood.")));
    QCOMPARE(lines.size(), 26);
    QCOMPARE(Cli::tildePath(QStringLiteral("/home/a/x"), QStringLiteral("/home/a")), QStringLiteral("~/x"));
    QCOMPARE(Cli::tildePath(QStringLiteral("/home/ab/x"), QStringLiteral("/home/a")), QStringLiteral("/home/ab/x"));
}

void CliTest::programPrintsWithOneTrailingNewline()
{
    const QString program = QStringLiteral(VAXO_ISLAND_BINARY);
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("DISPLAY"));
    env.insert(QStringLiteral("XDG_DATA_HOME"), QStringLiteral("/nonexistent/data"));
    env.insert(QStringLiteral("HOME"), QStringLiteral("/nonexistent/home"));
    env.insert(QStringLiteral("LANG"), QStringLiteral("C"));
    p.setProcessEnvironment(env);

    p.start(program, {QStringLiteral("--version")});
    QVERIFY(p.waitForFinished(10000));
    QCOMPARE(p.exitCode(), 0);
    QCOMPARE(p.readAllStandardOutput(), QByteArray("VAXO Island " VAXO_VERSION "\n"));

    p.start(program, {QStringLiteral("help")});
    QVERIFY(p.waitForFinished(10000));
    QCOMPARE(p.exitCode(), 0);
    const QByteArray out = p.readAllStandardOutput();
    QVERIFY(out.endsWith("per\n      mood.\n"));
    QVERIFY(!out.endsWith("\n\n"));
    QVERIFY(out.contains("\xe2\x80\x94")); // the em dash survives a C locale
    QVERIFY(out.contains("  /nonexistent/data/VAXO Island/sessions\n"));
}

QTEST_GUILESS_MAIN(CliTest)
#include "CliTest.moc"
