#include "TempHome.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

#include <csignal>

using vaxo::test::TempHome;

// The real program on the test's X server, in a throw-away home.
class ProgramTest : public QObject {
    Q_OBJECT
private slots:
    void startsInOrderAndEndsOnSignals_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
    }
    void startsInOrderAndEndsOnSignals()
    {
        if (qEnvironmentVariableIsEmpty("DISPLAY"))
            QSKIP("needs an X server");
        TempHome home;
        const vaxo::AppPaths &paths = home.paths();
        QDir().mkpath(home.root() + "/.claude"); // Claude Code is set up
        // Decisions nobody picked up: one older than ten minutes, one fresh.
        TempHome::write(paths.decisions() + "/old.json", "{}");
        TempHome::write(paths.decisions() + "/fresh.json", "{}");
        QCOMPARE(QProcess::execute("touch", {"-d", "11 minutes ago", paths.decisions() + "/old.json"}), 0);

        QProcess program;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("HOME", home.root());
        for (const char *dir : {"DATA", "CONFIG", "CACHE"})
            env.insert(QStringLiteral("XDG_%1_HOME").arg(dir), home.root() + "/" + QString(dir).toLower());
        program.setProcessEnvironment(env);
        program.start(QStringLiteral(VAXO_ISLAND_BINARY), {});

        // The hooks are installed, stale decisions swept, then the island watches the sessions folder.
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(paths.sessions() + "/.metadata_never_index"), 20000);
        QVERIFY(QFile::exists(paths.hookScript()) && QFile::exists(paths.reporterScript()));
        QVERIFY(!QFile::exists(paths.decisions() + "/old.json"));
        QVERIFY(QFile::exists(paths.decisions() + "/fresh.json"));
        const QByteArray settings = TempHome::read(home.root() + "/.claude/settings.json");
        QCOMPARE(QJsonDocument::fromJson(settings).object().value("hooks").toObject().size(), 7);

        // The clipboard history takes what another program copies and keeps its file private.
        QProcess xclip; // forks and keeps offering the text in the background
        xclip.start("xclip", {"-selection", "clipboard"});
        xclip.write("notes for the island test");
        xclip.closeWriteChannel();
        QVERIFY(xclip.waitForFinished());
        QTRY_VERIFY_WITH_TIMEOUT(TempHome::read(paths.clipboardFile()).contains("notes for the island test"), 10000);
        QCOMPARE(TempHome::mode(paths.clipboardFile()), 0600);

        QFETCH(int, signal);
        ::kill(pid_t(program.processId()), signal);
        QVERIFY(program.waitForFinished(10000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(ProgramTest)
#include "ProgramTest.moc"
