#include "app/Cli.h"

#include <QProcess>
#include <QTest>

using vaxo::Cli;

static const vaxo::CliFiles kFiles{"~/.local/share/VAXO Island/sessions", "~/.local/share/VAXO Island/Face"};

class CliTest : public QObject {
    Q_OBJECT
private slots:
    void wordsSelectTheAnswer_data()
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
        QTest::newRow("unknown starts the program") << QStringList{"--frobnicate"} << "start";
        QTest::newRow("unknown beside version") << QStringList{"x", "--version"} << "version";
        QTest::newRow("whole words only") << QStringList{"--helpme", "-vv"} << "start";
    }
    void wordsSelectTheAnswer()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, expected);
        const auto answer = Cli::response(args, QStringLiteral("1.2.3"), kFiles);
        QCOMPARE(answer.has_value(), expected != "start");
        if (answer)
            QCOMPARE(*answer, expected == "help" ? Cli::usage("1.2.3", kFiles) : QStringLiteral("VAXO Island 1.2.3"));
    }
    void helpTextIsExact()
    {
        const QString text = Cli::usage(std::nullopt, kFiles);
        QVERIFY(text.startsWith("VAXO Island (development build, no bundle)\nYour coding agents, in the notch.\n\n"));
        QVERIFY(text.contains(QStringLiteral("no Dock icon \u2014\nit hangs off the notch")));
        QVERIFY(text.contains("\nSUMMON\n  Alt+Super+I    show Vaxo on her own, under the notch; again to dismiss\n"));
        QVERIFY(text.contains("\nFILES\n  ~/.local/share/VAXO Island/sessions\n      one JSON file"));
        QVERIFY(text.endsWith("per\n      mood."));
        QCOMPARE(text.count('\n'), 25);
        QCOMPARE(Cli::tildePath("/home/a/x", "/home/a"), QStringLiteral("~/x"));
        QCOMPARE(Cli::tildePath("/home/ab/x", "/home/a"), QStringLiteral("/home/ab/x"));
    }
    void programPrintsWithOneTrailingNewline()
    {
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove("DISPLAY");
        env.insert("HOME", "/nonexistent/home");
        env.insert("XDG_DATA_HOME", "/nonexistent/home/data");
        env.insert("LANG", "C");
        p.setProcessEnvironment(env);
        const auto run = [&p](const QString &arg) {
            p.start(QStringLiteral(VAXO_ISLAND_BINARY), {arg});
            return p.waitForFinished(10000) && p.exitCode() == 0 ? p.readAllStandardOutput() : QByteArray();
        };
        QCOMPARE(run("--version"), QByteArray("VAXO Island " VAXO_VERSION "\n"));
        const QByteArray out = run("help");
        const vaxo::CliFiles files{"~/data/VAXO Island/sessions", "~/data/VAXO Island/Face"};
        QCOMPARE(out, (Cli::usage(VAXO_VERSION, files) + '\n').toUtf8());
        QVERIFY(out.contains("\xe2\x80\x94")); // the em dash survives a C locale
    }
};

QTEST_GUILESS_MAIN(CliTest)
#include "CliTest.moc"
