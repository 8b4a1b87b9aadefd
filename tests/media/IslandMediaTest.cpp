#include "media/IslandMedia.h"
#include "FakeActivitySources.h"
#include "FakeClock.h"
#include "FakeMediaPlayers.h"
#include "TempHome.h"
#include "base/AppActivity.h"
#include "base/IslandScheduler.h"
#include "base/IslandSettings.h"
#include "media/MusicText.h"

#include <QSignalSpy>
#include <QTest>

using namespace vaxo;
Q_DECLARE_METATYPE(vaxo::MediaCommand)

namespace {

NowPlaying track(const QString &title, const QString &source = "Music", bool playing = true, double elapsed = 0)
{
    NowPlaying t;
    t.title = title;
    t.artist = "Artist";
    t.isPlaying = playing;
    t.source = source;
    t.elapsed = elapsed;
    t.duration = 200;
    t.player = "org.mpris.MediaPlayer2." + title;
    return t;
}

// The reader over fake players, with the real scheduler, settings and log on a fake clock.
struct Rig {
    test::TempHome home;
    test::FakeClock clock;
    DisplayStateSource *display = new DisplayStateSource;
    test::FakeIdleTime *idle = new test::FakeIdleTime;
    AppActivity activity{{display, nullptr, nullptr}, {}};
    IslandScheduler scheduler{clock, activity, idle};
    IslandSettings settings{home.paths().settingsFile()};
    test::FakeMediaPlayers players;
    bool fakeTrack = false;
    std::optional<IslandMedia> made;

    // Made on first use, so that a test can set the players up first.
    IslandMedia &media()
    {
        if (!made)
            made.emplace(players, scheduler, settings, home.paths(), clock, IslandMedia::Switches{fakeTrack});
        return *made;
    }
    QString title() { return media().now() ? media().now()->title : QString(); }
    QString log() { return QString::fromUtf8(test::TempHome::read(media().mediaLog().file())); }
};

} // namespace

class IslandMediaTest : public QObject {
    Q_OBJECT
private slots:
    void pollsFollowTheJobAndItsIntervals()
    {
        Rig rig;
        rig.media().start();
        QVERIFY(rig.scheduler.hasJob(IslandMedia::kJobName));
        QCOMPARE(rig.players.playerReads, 1);
        QVERIFY(rig.log().endsWith("] start() called, enabled=true\n"));

        rig.clock.advance(19.9);
        QCOMPARE(rig.players.playerReads, 1);
        rig.players.record = track("Song");
        rig.clock.advance(0.1); // every 20 s while nothing plays; the track makes it every 3 s
        QCOMPARE(rig.title(), "Song");
        rig.clock.advance(30);
        QCOMPARE(rig.players.playerReads, 12);

        rig.players.record.reset();
        rig.clock.advance(3);
        QVERIFY(!rig.media().now());
        rig.clock.advance(19.9);
        QCOMPARE(rig.players.playerReads, 13);

        rig.players.running = false; // no player: nobody is asked, the poll goes on at 20 s
        rig.clock.advance(20);
        QCOMPARE(rig.players.playerReads, 13);
        rig.players.running = true;

        rig.idle->seconds = 300; // idle: every 40 s
        rig.scheduler.reevaluateTier();
        rig.clock.advance(80);
        QCOMPARE(rig.players.playerReads, 15);
        rig.idle->seconds = 0;
        emit rig.display->displayLost(); // away: never
        rig.clock.advance(600);
        QCOMPARE(rig.players.playerReads, 15);
    }
    void onlyChangesArePublished()
    {
        Rig rig;
        QSignalSpy published(&rig.media(), &IslandMedia::nowChanged);
        rig.players.record = track("Song", "Music", true, 10);
        rig.media().refresh();
        rig.players.record = track("Song", "Music", true, 13);
        rig.players.record->capturedAt = 3;
        rig.media().refresh();
        QCOMPARE(published.count(), 1);
        QCOMPARE(rig.media().now()->elapsed, 10.0); // the first reading stays, to extrapolate from

        rig.players.record->isPlaying = false;
        rig.media().refresh();
        QCOMPARE(published.count(), 2);
        rig.players.record->artwork = std::make_shared<Artwork>();
        rig.media().refresh();
        QCOMPARE(published.count(), 3);
    }
    void systemSource_data()
    {
        QTest::addColumn<QString>("answers"); // per poll: r a record, e nothing, x the service gave up
        QTest::addColumn<bool>("works");
        QTest::addColumn<int>("playerReads");
        QTest::newRow("four empty") << "eeee" << true << 4;
        QTest::newRow("fifth empty") << "eeeee" << false << 5;
        QTest::newRow("a record resets the count") << "eeeereeee" << true << 8;
        QTest::newRow("given up") << "x" << false << 1;
    }
    void systemSource()
    {
        QFETCH(QString, answers);
        QFETCH(bool, works);
        QFETCH(int, playerReads);
        Rig rig;
        rig.players.systemSource = true;
        IslandMedia &media = rig.media();
        for (const QChar answer : answers) {
            rig.players.system = answer == 'r' ? std::optional<NowPlaying>(track("System", "System")) : std::nullopt;
            rig.players.systemWorks = answer != 'x';
            media.refresh();
        }
        QCOMPARE(media.systemSourceWorks(), works);
        QCOMPARE(rig.players.systemReads, answers.size());
        QCOMPARE(rig.players.playerReads, playerReads);
        media.refresh(); // the poll after decides by what was learnt
        QCOMPARE(rig.players.systemReads, answers.size() + (works ? 1 : 0));
    }
    void musicSettingSwitchesAtOnce()
    {
        Rig rig;
        rig.players.record = track("Song");
        rig.media().start();
        rig.settings.setMusic(false);
        QVERIFY(!rig.media().now());
        QVERIFY(!rig.scheduler.hasJob(IslandMedia::kJobName));
        rig.media().refresh();
        rig.clock.advance(120);
        QVERIFY(!rig.media().now());
        QCOMPARE(rig.players.playerReads, 1);

        rig.players.hold = true; // an answer under way when the setting goes off is dropped
        rig.settings.setMusic(true);
        QVERIFY(rig.scheduler.hasJob(IslandMedia::kJobName));
        QCOMPARE(rig.players.playerReads, 2);
        rig.settings.setMusic(false);
        rig.players.release(0, track("Song"));
        QVERIFY(!rig.media().now());
    }
    void olderAnswersNeverOvertakeNewer()
    {
        Rig rig;
        rig.players.hold = true;
        rig.media().refresh();
        rig.media().refresh();
        rig.players.release(1, track("Newer"));
        rig.players.release(0, track("Older"));
        QCOMPARE(rig.title(), "Newer");
    }
    void aPlayerThatQuitsTakesItsRecord()
    {
        Rig rig;
        rig.players.record = track("Song");
        rig.media().refresh();
        rig.players.vanish("org.mpris.MediaPlayer2.other");
        QCOMPARE(rig.title(), "Song");
        rig.players.vanish("org.mpris.MediaPlayer2.Song");
        QVERIFY(!rig.media().now());
    }
    void startAndStop()
    {
        Rig demo;
        demo.fakeTrack = true;
        demo.media().start();
        QCOMPARE(demo.title(), "Midnight Compile");
        QCOMPARE(demo.media().now()->duration, 146.0);
        QVERIFY(!demo.scheduler.hasJob(IslandMedia::kJobName));
        QCOMPARE(demo.players.playerReads, 0);

        Rig rig;
        rig.players.record = track("Song");
        rig.media().start();
        rig.media().stop();
        QVERIFY(!rig.media().running() && !rig.media().now());
        QVERIFY(!rig.scheduler.hasJob(IslandMedia::kJobName));
        rig.media().start();
        QCOMPARE(rig.title(), "Song");
    }
    void commandsGoWhereTheyCan_data()
    {
        QTest::addColumn<QString>("source"); // of the published record, "" for none
        QTest::addColumn<bool>("trusted");
        QTest::addColumn<MediaCommand>("command");
        QTest::addColumn<bool>("canControl");
        QTest::addColumn<QString>("route"); // "player", "key" or "blocked"
        QTest::newRow("Spotify untrusted") << "Spotify" << false << MediaCommand::Next << true << "player";
        QTest::newRow("Music untrusted") << "Music" << false << MediaCommand::PlayPause << true << "player";
        QTest::newRow("Chrome untrusted") << "Chrome" << false << MediaCommand::PlayPause << false << "blocked";
        QTest::newRow("nothing, trusted") << "" << true << MediaCommand::Previous << true << "key";
        QTest::newRow("System, trusted") << "System" << true << MediaCommand::Next << true << "key";
    }
    void commandsGoWhereTheyCan()
    {
        QFETCH(QString, source);
        QFETCH(bool, trusted);
        QFETCH(MediaCommand, command);
        QFETCH(bool, canControl);
        QFETCH(QString, route);
        Rig rig;
        rig.players.trusted = trusted;
        if (!source.isEmpty())
            rig.players.record = track("Song", source);
        IslandMedia &media = rig.media();
        media.refresh();
        QCOMPARE(media.canControlNowPlaying(), canControl);
        const int reads = rig.players.playerReads;

        media.send(command);
        QCOMPARE(rig.players.sent, route == "player" ? QList<MediaCommand>{command} : QList<MediaCommand>{});
        QCOMPARE(rig.players.keys, route == "key" ? QList<MediaCommand>{command} : QList<MediaCommand>{});
        QCOMPARE(media.controlBlockedReason().has_value(), route == "blocked");
        QCOMPARE(rig.players.playerReads, reads + (route == "player" ? 1 : 0)); // the player's new state at once
        rig.clock.advance(IslandMedia::kMediaKeyRefresh);
        // A key shows 0.6 s later; a player is asked once more after it has had a moment to settle.
        QCOMPARE(rig.players.playerReads, reads + (route == "blocked" ? 0 : route == "player" ? 2 : 1));
        if (route != "blocked")
            return;
        QCOMPARE(*media.controlBlockedReason(), MusicText::mediaKeysBlocked());
        QVERIFY(rig.log().endsWith("] media key blocked: no Accessibility permission\n"));
        QCOMPARE(rig.players.prompts, 1);
        QCOMPARE(rig.players.settingsOpened, 0);
        rig.clock.advance(IslandMedia::kGrantRecheck);
        QCOMPARE(rig.players.settingsOpened, 1);

        rig.players.trusted = true; // trust granted: the next poll clears the reason
        media.refresh();
        QVERIFY(media.accessibilityGranted() && !media.controlBlockedReason());
        QVERIFY(media.canControlNowPlaying());
    }
};

QTEST_GUILESS_MAIN(IslandMediaTest)
#include "IslandMediaTest.moc"
