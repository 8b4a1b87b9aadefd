#include "media/MusicSection.h"
#include "FakeClock.h"
#include "FakeMediaPlayers.h"
#include "TempHome.h"
#include "base/AppActivity.h"
#include "base/IslandScheduler.h"
#include "base/IslandSettings.h"
#include "media/IslandMedia.h"
#include "media/MusicText.h"

#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

namespace {

NowPlaying track(bool playing, std::optional<double> elapsed, std::optional<double> duration, double capturedAt = 0)
{
    NowPlaying t;
    t.title = "Song";
    t.artist = "Band";
    t.isPlaying = playing;
    t.source = "Spotify";
    t.elapsed = elapsed;
    t.duration = duration;
    t.capturedAt = capturedAt;
    return t;
}

} // namespace

class MusicSectionTest : public QObject {
    Q_OBJECT
private slots:
    void clocks_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("text");
        QTest::newRow("start") << 0.0 << "0:00";
        QTest::newRow("fraction") << 7.9 << "0:07";
        QTest::newRow("minutes") << 225.0 << "3:45";
        QTest::newRow("hours") << 3723.0 << "1:02:03";
        QTest::newRow("negative") << -4.0 << "0:00";
    }
    void clocks()
    {
        QFETCH(double, seconds);
        QFETCH(QString, text);
        QCOMPARE(MusicText::clock(seconds), text);
    }
    void positions_data()
    {
        QTest::addColumn<NowPlaying>("track");
        QTest::addColumn<double>("now");
        QTest::addColumn<QString>("elapsed"); // "" when unknown
        QTest::addColumn<double>("progress");
        QTest::newRow("playing moves on") << track(true, 30, 120) << 30.0 << "1:00" << 0.5;
        QTest::newRow("paused stays") << track(false, 30, 120) << 30.0 << "0:30" << 0.25;
        QTest::newRow("kept within the length") << track(true, 100, 120) << 60.0 << "2:00" << 1.0;
        QTest::newRow("unknown length") << track(true, 10, std::nullopt) << 5.0 << "0:15" << 0.0;
        QTest::newRow("unknown position") << track(true, std::nullopt, 120) << 5.0 << "" << 0.0;
        QTest::newRow("clock behind capture") << track(true, 10, 120, 50) << 40.0 << "0:10" << 10.0 / 120;
    }
    void positions()
    {
        QFETCH(NowPlaying, track);
        QFETCH(double, now);
        QFETCH(QString, elapsed);
        QFETCH(double, progress);
        const std::optional<double> at = MusicText::position(track, now);
        QCOMPARE(at ? MusicText::clock(*at) : QString(), elapsed);
        QCOMPARE(MusicText::progress(at, track.duration), progress);
    }
    void words()
    {
        NowPlaying t = track(true, 0, 225);
        QCOMPARE(MusicText::stripText(t), "Song \u00b7 Band");
        t.artist.clear();
        QCOMPARE(MusicText::stripText(t), "Song");
        QCOMPARE(MusicText::durationText(225.0), "3:45");
        QCOMPARE(MusicText::durationText(std::nullopt), "");
        QCOMPARE(MusicText::durationText(0.0), "");
        QCOMPARE(MusicText::allowance(t), 40.0);
        QCOMPARE(MusicText::allowance(track(false, 0, 1)), 34.0);
        QCOMPARE(MusicText::allowance(std::nullopt), 0.0);
        QCOMPARE(MusicText::controlNote(false, true, std::nullopt), "Every player can be controlled");
        QCOMPARE(MusicText::controlNote(true, true, std::nullopt),
                 "Accessibility granted \u2014 every player can be controlled");
        QCOMPARE(MusicText::controlNote(true, false, std::nullopt),
                 "without it Chrome and YouTube Music cannot be controlled \u2014 Spotify and Music still can");
        QCOMPARE(MusicText::controlNote(true, false, QString("blocked")), "blocked");
    }
    // The section over the reader: texts follow the track, and the position timer runs exactly while
    // the tab is shown, the track plays and the gate is open.
    void sectionFollowsTheTrackAndTicksOnlyWhenSeen()
    {
        test::TempHome home;
        test::FakeClock clock(1000);
        AppActivity activity({}, {});
        IslandBusyInputs busy{true};
        activity.followIsland([&] { return busy; });
        IslandScheduler scheduler(clock, activity, nullptr);
        IslandSettings settings(home.paths().settingsFile());
        test::FakeMediaPlayers players;
        players.needsPermission = false;
        IslandMedia media(players, scheduler, settings, home.paths(), clock, {});
        MusicSection section(media, activity, clock);
        QSignalSpy tracks(&section, &MusicSection::trackChanged);
        QCOMPARE(section.emptyText(), "Nothing playing");
        QCOMPARE(section.controlNote(), "Every player can be controlled");
        QVERIFY(!section.hasTrack() && section.allowance() == 0);

        players.record = track(true, 60, 240, 1000);
        media.refresh();
        QCOMPARE(tracks.count(), 1);
        QVERIFY(section.hasTrack() && section.playing());
        QCOMPARE(section.stripText(), "Song \u00b7 Band");
        QCOMPARE(section.durationText(), "4:00");
        QCOMPARE(section.allowance(), 40.0);
        QVERIFY(section.artwork().isEmpty());
        QVERIFY(!section.ticking()); // not shown
        clock.advance(5);
        QCOMPARE(section.elapsedText(), "1:00");

        section.setShown(true);
        QVERIFY(section.ticking());
        QCOMPARE(section.elapsedText(), "1:05");
        clock.advance(2);
        QCOMPARE(section.elapsedText(), "1:07");
        QCOMPARE(section.progress(), 67.0 / 240);
        QCOMPARE(tracks.count(), 1); // the position moves alone

        busy = {};
        activity.recomputeIslandBusy(); // the gate closes: the bar stands still
        QVERIFY(!section.ticking());
        clock.advance(3);
        QCOMPARE(section.elapsedText(), "1:07");
        busy = {true};
        activity.recomputeIslandBusy();
        QVERIFY(section.ticking());
        QCOMPARE(section.elapsedText(), "1:10");

        players.record = track(false, 70, 240, clock.now());
        media.refresh(); // paused: no timer, a smaller allowance
        QVERIFY(!section.ticking());
        QCOMPARE(section.allowance(), 34.0);
        section.setShown(false);
        players.record = track(true, 70, 240, clock.now());
        media.refresh();
        QVERIFY(!section.ticking());
        QCOMPARE(clock.activeTimers(), 0); // no timer at all
    }
};

QTEST_GUILESS_MAIN(MusicSectionTest)
#include "MusicSectionTest.moc"
