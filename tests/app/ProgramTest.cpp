#include "app/AppPaths.h"

#include "TempHome.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

#include <csignal>

// The real program on the test's X server, in a throw-away home.
namespace {

QByteArray clipboardText()
{
    QProcess xclip;
    xclip.start(QStringLiteral("xclip"),
                {QStringLiteral("-o"), QStringLiteral("-selection"), QStringLiteral("clipboard")});
    xclip.waitForFinished();
    return xclip.readAllStandardOutput();
}

} // namespace

class ProgramTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void startsInOrderAndEndsOnSignals_data();
    void startsInOrderAndEndsOnSignals();

private:
    // Copies text the way another program does, and waits until the copy is on offer.
    static void copy(const QByteArray &text);
};

void ProgramTest::copy(const QByteArray &text)
{
    QProcess xclip;
    xclip.start(QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard")});
    QVERIFY(xclip.waitForStarted());
    xclip.write(text);
    xclip.closeWriteChannel();
    QVERIFY(xclip.waitForFinished()); // xclip forks and keeps offering the text in the background
    QTRY_COMPARE_WITH_TIMEOUT(clipboardText(), text, 5000);
}

void ProgramTest::initTestCase()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        QSKIP("needs an X server");
}

void ProgramTest::startsInOrderAndEndsOnSignals_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void ProgramTest::startsInOrderAndEndsOnSignals()
{
    QFETCH(int, signal);
    vaxo::test::TempHome home;
    const vaxo::AppPaths &paths = home.paths();
    QDir().mkpath(home.root() + "/.claude"); // Claude Code is set up
    // Decisions that nobody picked up: one older than ten minutes, one fresh.
    vaxo::test::TempHome::write(paths.decisions() + "/old.json", R"({"allow":true})");
    vaxo::test::TempHome::write(paths.decisions() + "/fresh.json", R"({"allow":true})");
    QFile old(paths.decisions() + "/old.json");
    QVERIFY(old.open(QIODevice::ReadWrite));
    QVERIFY(old.setFileTime(QDateTime::currentDateTime().addSecs(-660), QFileDevice::FileModificationTime));
    old.close();

    QProcess program;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("HOME", home.root());
    env.insert("XDG_DATA_HOME", home.root() + "/data");
    env.insert("XDG_CONFIG_HOME", home.root() + "/config");
    env.insert("XDG_CACHE_HOME", home.root() + "/cache");
    program.setProcessEnvironment(env);
    program.start(QStringLiteral(VAXO_ISLAND_BINARY), {});
    QVERIFY(program.waitForStarted());

    // The hooks are installed, stale decisions swept, then the island watches the sessions folder.
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(paths.sessions() + "/.metadata_never_index"), 20000);
    QVERIFY(QFile::exists(paths.hookScript()));
    QVERIFY(QFile::exists(paths.reporterScript()));
    QVERIFY(!QFile::exists(paths.decisions() + "/old.json"));
    QVERIFY(QFile::exists(paths.decisions() + "/fresh.json"));
    const QJsonObject settings =
        QJsonDocument::fromJson(vaxo::test::TempHome::read(home.root() + "/.claude/settings.json")).object();
    QCOMPARE(settings.value("hooks").toObject().size(), 6);

    // The clipboard history runs and keeps its file private.
    copy("notes for the island test");
    QTRY_VERIFY_WITH_TIMEOUT(vaxo::test::TempHome::read(paths.clipboardFile()).contains("notes for the island test"),
                             10000);
    QCOMPARE(vaxo::test::TempHome::mode(paths.clipboardFile()), 0600);

    ::kill(pid_t(program.processId()), signal);
    QVERIFY(program.waitForFinished(10000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

QTEST_GUILESS_MAIN(ProgramTest)
#include "ProgramTest.moc"
