#include "agents/LocalHookSource.h"
#include "platform/FolderWatcher.h"
#include "platform/PlatformServices.h"

#include "FakeClock.h"
#include "TempHome.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

class LocalHookSourceTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void loadingRules();
    void unlistableFolderYieldsNothing();
    void startPreparesTheFolderAndStaysQuietWhenEmpty();
    void burstOfWritesGivesOneReload();
    void identicalRewriteDeliversNothing();
    void removingTheLastFileDeliversAnEmptyList();
    void nothingAfterStop();
    void unwatchableFolderIsLogged();

private:
    QString dir() const { return m_home->paths().sessions(); }
    void writeSession(const QString &id, const QString &status, double updated);
    void start();
    // Returns once the watcher has reported the change just made.
    void waitForEvent();

    std::unique_ptr<test::TempHome> m_home;
    std::unique_ptr<test::FakeClock> m_clock;
    std::unique_ptr<LocalHookSource> m_source;
    FolderWatcher *m_watcher = nullptr;
    std::unique_ptr<QSignalSpy> m_events;
    std::unique_ptr<QSignalSpy> m_reloads;
    QList<QList<AgentSession>> m_delivered;
};

void LocalHookSourceTest::init()
{
    m_home = std::make_unique<test::TempHome>();
    m_clock = std::make_unique<test::FakeClock>();
    m_watcher = PlatformServices::newFolderWatcher();
    m_source = std::make_unique<LocalHookSource>(dir(), *m_clock, m_watcher);
    m_events = std::make_unique<QSignalSpy>(m_watcher, &FolderWatcher::changed);
    m_reloads = std::make_unique<QSignalSpy>(m_source.get(), &LocalHookSource::reloaded);
    m_delivered.clear();
}

void LocalHookSourceTest::cleanup()
{
    m_events.reset();
    m_reloads.reset();
    m_source.reset();
}

void LocalHookSourceTest::writeSession(const QString &id, const QString &status, double updated)
{
    // As the hook writes: a temporary name, then a rename over the final one.
    const QString tmp = dir() + "/." + id + ".tmp";
    test::TempHome::write(tmp, QStringLiteral(R"({"id":"%1","agent":"claude","label":"p","status":"%2","updated":%3})")
                                   .arg(id, status)
                                   .arg(updated, 0, 'f', 3)
                                   .toUtf8());
    QFile::rename(tmp, dir() + "/" + id + ".json");
}

void LocalHookSourceTest::start()
{
    m_source->start([this](const QList<AgentSession> &list) { m_delivered << list; });
}

void LocalHookSourceTest::waitForEvent()
{
    const qsizetype before = m_events->size();
    QTRY_VERIFY_WITH_TIMEOUT(m_events->size() > before, 5000);
}

void LocalHookSourceTest::loadingRules()
{
    const double now = m_clock->now();
    QDir().mkpath(dir());
    writeSession("fresh", "working", now - 28800);  // exactly at the limit: kept
    writeSession("stale", "working", now - 28801);  // over it: removed from disk
    test::TempHome::write(dir() + "/ageless.json", R"({"id":"ageless","agent":"c","label":"l","status":"done"})");
    test::TempHome::write(dir() + "/broken.json", R"({"id":"broken","agent":)");
    test::TempHome::write(dir() + "/x.json.tmp", R"({"id":"tmp","agent":"c","label":"l","status":"done"})");
    test::TempHome::write(dir() + "/nolabel.json", R"({"id":"n","agent":"c","status":"done"})");
    QDir().mkpath(dir() + "/folder.json"); // cannot be read as a file

    const auto list = SessionDirectory::load(dir(), now);
    QVERIFY(list);
    QStringList ids;
    for (const auto &s : *list)
        ids << s.id;
    QCOMPARE(ids, (QStringList{"fresh", "ageless"}));
    QVERIFY(!QFile::exists(dir() + "/stale.json"));
    QVERIFY(QFile::exists(dir() + "/broken.json")); // malformed files stay for the writer to fix
    QVERIFY(QFile::exists(dir() + "/nolabel.json"));
}

void LocalHookSourceTest::unlistableFolderYieldsNothing()
{
    QVERIFY(!SessionDirectory::load(dir() + "/missing", m_clock->now()));
    QDir().mkpath(dir());
    QVERIFY(SessionDirectory::load(dir(), m_clock->now())->isEmpty());
}

void LocalHookSourceTest::startPreparesTheFolderAndStaysQuietWhenEmpty()
{
    QDir().mkpath(dir());
    QFile::setPermissions(dir(), QFileDevice::Permissions(0x7755)); // 0755
    start();
    QCOMPARE(test::TempHome::mode(dir()), 0700);
    QVERIFY(QFile::exists(dir() + "/.metadata_never_index"));
    QCOMPARE(m_delivered.size(), 0);

    writeSession("a", "working", m_clock->now());
    waitForEvent();
    m_clock->advance(LocalHookSource::kCoalesceDelay);
    QCOMPARE(m_delivered.size(), 1);
    QCOMPARE(m_delivered.last().first().id, QStringLiteral("a"));
}

void LocalHookSourceTest::burstOfWritesGivesOneReload()
{
    start();
    const int reloadsAtStart = int(m_reloads->size());
    for (int i = 0; i < 10; ++i) {
        writeSession(QString::number(i), "working", m_clock->now());
        waitForEvent();
        m_clock->advance(0.004);
    }
    m_clock->advance(LocalHookSource::kCoalesceDelay - 0.005); // 0.049 s after the last event
    QCOMPARE(m_reloads->size(), reloadsAtStart);
    m_clock->advance(0.002);
    QCOMPARE(m_reloads->size(), reloadsAtStart + 1);
    QCOMPARE(m_delivered.size(), 1);
    QCOMPARE(m_delivered.last().size(), 10);
}

void LocalHookSourceTest::identicalRewriteDeliversNothing()
{
    const double updated = m_clock->now() - 0.5;
    writeSession("a", "working", updated);
    start();
    QCOMPARE(m_delivered.size(), 1);
    const int reloads = int(m_reloads->size());
    writeSession("a", "working", updated);
    waitForEvent();
    m_clock->advance(LocalHookSource::kCoalesceDelay);
    QCOMPARE(m_reloads->size(), reloads + 1);
    QCOMPARE(m_delivered.size(), 1);
}

void LocalHookSourceTest::removingTheLastFileDeliversAnEmptyList()
{
    writeSession("a", "waiting", m_clock->now());
    start();
    QFile::remove(dir() + "/a.json");
    waitForEvent();
    m_clock->advance(LocalHookSource::kCoalesceDelay);
    QCOMPARE(m_delivered.size(), 2);
    QVERIFY(m_delivered.last().isEmpty());
}

void LocalHookSourceTest::nothingAfterStop()
{
    start();
    writeSession("a", "working", m_clock->now());
    waitForEvent(); // a reload is pending when stop comes
    m_source->stop();
    writeSession("b", "working", m_clock->now());
    QFile::remove(dir() + "/a.json");
    QTest::qWait(50); // give a cancelled watch the chance to misbehave
    m_clock->advance(1);
    QCOMPARE(m_delivered.size(), 0);
    QCOMPARE(m_events->size(), 1);
}

void LocalHookSourceTest::unwatchableFolderIsLogged()
{
    // A file where the folder's parent should be: the folder can be neither made nor watched.
    test::TempHome::write(m_home->paths().support, "not a folder");
    QTest::ignoreMessage(QtWarningMsg, qPrintable("[island] cannot watch " + dir()));
    start();
    QCOMPARE(m_delivered.size(), 0);
}

QTEST_GUILESS_MAIN(LocalHookSourceTest)
#include "LocalHookSourceTest.moc"
