#include "agents/LocalHookSource.h"
#include "platform/FolderWatcher.h"
#include "platform/PlatformServices.h"

#include "FakeClock.h"
#include "TempHome.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

// The source over a real folder and a real inotify watch; time moves only by the fake clock.
class LocalHookSourceTest : public QObject {
    Q_OBJECT
private slots:
    void watching();
    void unwatchableFolderIsLogged();
};

void LocalHookSourceTest::watching()
{
    test::TempHome home;
    test::FakeClock clock;
    const QString dir = home.paths().sessions();
    FolderWatcher *watcher = PlatformServices::newFolderWatcher();
    LocalHookSource source(dir, clock, watcher);
    QSignalSpy events(watcher, &FolderWatcher::changed);
    QSignalSpy reloads(&source, &LocalHookSource::reloaded);
    QList<QList<AgentSession>> delivered;
    const auto write = [&](double updated) {
        test::TempHome::replace(dir + "/a.json",
                                QByteArray(R"({"id":"a","agent":"c","label":"p","status":"working",)") +
                                    R"("updated":)" + QByteArray::number(updated, 'f', 3) + "}");
    };
    // Returns once the watcher has reported the change just made.
    const auto waitForEvent = [&] {
        const qsizetype before = events.size();
        QTRY_VERIFY_WITH_TIMEOUT(events.size() > before, 5000);
    };

    QDir().mkpath(dir);
    QFile::setPermissions(dir, QFileDevice::Permissions(0x7755)); // 0755
    source.start([&](const QList<AgentSession> &list) { delivered << list; });
    QCOMPARE(test::TempHome::mode(dir), 0700);
    QVERIFY(QFile::exists(dir + "/.metadata_never_index"));
    QCOMPARE(delivered.size(), 0); // an empty folder is no change

    // Ten writes 4 ms apart: one reload, 50 ms after the last, with the last write.
    const qsizetype reloadsAtStart = reloads.size();
    for (int i = 0; i < 10; ++i) {
        write(clock.now());
        waitForEvent();
        if (i < 9)
            clock.advance(0.004);
    }
    const double last = clock.now();
    clock.advance(LocalHookSource::kCoalesceDelay - 0.001);
    QCOMPARE(reloads.size(), reloadsAtStart);
    clock.advance(0.002);
    QCOMPARE(reloads.size(), reloadsAtStart + 1);
    QCOMPARE(delivered.size(), 1);
    QCOMPARE(delivered.last().first().updated.value(), last); // fuzzy: tells writes 4 ms apart

    write(last); // the same bytes again: a reload, no delivery
    waitForEvent();
    clock.advance(LocalHookSource::kCoalesceDelay);
    QCOMPARE(reloads.size(), reloadsAtStart + 2);
    QCOMPARE(delivered.size(), 1);

    QFile::remove(dir + "/a.json");
    waitForEvent();
    clock.advance(LocalHookSource::kCoalesceDelay);
    QCOMPARE(delivered.size(), 2);
    QVERIFY(delivered.last().isEmpty());

    write(clock.now());
    waitForEvent(); // a reload is pending when stop comes
    source.stop();
    const qsizetype eventsAtStop = events.size();
    QFile::remove(dir + "/a.json");
    QTest::qWait(50); // give a cancelled watch the chance to misbehave
    clock.advance(1);
    QCOMPARE(delivered.size(), 2);
    QCOMPARE(events.size(), eventsAtStop);
}

void LocalHookSourceTest::unwatchableFolderIsLogged()
{
    // A file where the folder's parent should be: the folder can be neither made nor watched.
    test::TempHome home;
    test::FakeClock clock;
    test::TempHome::write(home.paths().support, "not a folder");
    LocalHookSource source(home.paths().sessions(), clock, PlatformServices::newFolderWatcher());
    int calls = 0;
    QTest::ignoreMessage(QtWarningMsg, qPrintable("[island] cannot watch " + home.paths().sessions()));
    source.start([&](const QList<AgentSession> &) { ++calls; });
    QCOMPARE(calls, 0);
}

QTEST_GUILESS_MAIN(LocalHookSourceTest)
#include "LocalHookSourceTest.moc"
