#include "FakeClock.h"
#include "PrivatePlayers.h"
#include "TempHome.h"
#include "TestTable.h"
#include "base/AppActivity.h"
#include "base/IslandScheduler.h"
#include "base/IslandSettings.h"
#include "media/ArtworkCache.h"
#include "media/IslandMedia.h"
#include "platform/linux/MprisMediaPlayers.h"
#include "platform/linux/MprisRecord.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

using namespace vaxo;
using namespace vaxo::linux_platform;

namespace {

const QString kMpv = QString::fromLatin1(test::PrivatePlayers::kMpv);

// A player that answers with the wrong types.
class StandInGarbage : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ status)
    Q_PROPERTY(QString Metadata READ status)
public:
    QString status() const { return QStringLiteral("Playing"); }
};

} // namespace

// The readers against real players: mpv with its MPRIS plugin on a private session bus, playing a
// generated tone with a cover beside it.
class MprisPlayersTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void sources_data();
    void sources();
    void records_data();
    void records();
    void readsWhatMpvPlays();
    void playPauseReachesThePlayer();
    void secondAndVanishingPlayers();
    void silentAndGarbledPlayersBlockNobody();

private:
    // One read of every player, waited for.
    std::optional<NowPlaying> read(MprisMediaPlayers &players)
    {
        std::optional<std::optional<NowPlaying>> answer;
        players.readPlayers([&](const std::optional<NowPlaying> &record) { answer = record; });
        return QTest::qWaitFor([&] { return answer.has_value(); }, 10000) ? *answer : std::nullopt;
    }
    // Another mpv, on the bus under its instance name.
    QProcess *secondMpv(QString &name)
    {
        QProcess *mpv = m_peers.startMpv();
        name = test::PrivatePlayers::busName(*mpv, false);
        return QTest::qWaitFor([&] { return m_bus.interface()->isServiceRegistered(name); }, 20000) ? mpv : nullptr;
    }

    test::TempHome m_home;
    test::FakeClock m_clock;
    test::PrivatePlayers m_peers;
    QDBusConnection m_bus{QString()};
};

void MprisPlayersTest::initTestCase()
{
    QVERIFY(m_peers.ready());
    m_bus = QDBusConnection::connectToBus(m_peers.address(), QStringLiteral("players"));
    QVERIFY(m_bus.isConnected());
    m_peers.startMpv();
    QTRY_VERIFY_WITH_TIMEOUT(m_bus.interface()->isServiceRegistered(kMpv), 20000);
}

void MprisPlayersTest::cleanupTestCase()
{
    QDBusConnection::disconnectFromBus(QStringLiteral("players"));
}

void MprisPlayersTest::sources_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("identity");
    QTest::addColumn<QByteArray>("source");
    test::rows(R"(
Spotify             | spotify                         | Spotify        | Spotify
Spotify instance    | spotify.instance7               |                | Spotify
mpv                 | mpv                             | mpv            | Music
Rhythmbox           | rhythmbox                       | Rhythmbox      | Music
Chromium            | chromium.instance4321           | Chromium       | Chrome
Chrome by identity  | chromium.instance12             | Google Chrome  | Chrome
Firefox             | firefox.instance_1_84           | Mozilla Firefox | Chrome
Brave               | brave.instance99                | Brave          | Chrome
Vivaldi by identity | chromium.instance5              | Vivaldi        | Chrome
Edge                | msedge.instance3                | Microsoft Edge | Chrome
Opera by identity   | chromium.instance8              | Opera          | Chrome
Knowledge player    | knowledgeplayer                 | Knowledge Player | Music
)");
}

void MprisPlayersTest::sources()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, identity);
    QFETCH(QByteArray, source);
    QCOMPARE(MprisRecord::source(MprisRecord::kNamePrefix + QString::fromUtf8(name), identity), source);
}

void MprisPlayersTest::records_data()
{
    QTest::addColumn<QVariantMap>("properties");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("record"); // title, artist, playing, elapsed, duration
    const QVariantMap song{
        {"xesam:title", "Song"}, {"xesam:artist", QStringList{"Band", "Guest"}}, {"mpris:length", qint64(215'000'000)}};
    const auto with = [](QVariantMap map, const QString &key, const QVariant &value) {
        map.insert(key, value);
        return map;
    };
    const auto player = [](const QString &status, const QVariant &metadata,
                           const QVariant &position = qint64(3'500'000)) {
        return QVariantMap{{"PlaybackStatus", status}, {"Metadata", metadata}, {"Position", position}};
    };
    QTest::newRow("playing") << player("Playing", song) << "Music"
                             << "Song;Band;playing;3.5;215";
    QTest::newRow("paused") << player("Paused", song) << "Music"
                            << "Song;Band;paused;3.5;215";
    QTest::newRow("stopped") << player("Stopped", song) << "Music"
                             << "none";
    QTest::newRow("no status") << QVariantMap{{"Metadata", song}} << "Music"
                               << "none";
    QTest::newRow("no title") << player("Playing", with(song, "xesam:title", "")) << "Music"
                              << "none";
    QTest::newRow("title a number") << player("Playing", with(song, "xesam:title", 7)) << "Music"
                                    << "none";
    QTest::newRow("metadata a string") << player("Playing", "Song") << "Music"
                                       << "none";
    QTest::newRow("artist a string") << player("Playing", with(song, "xesam:artist", "Solo")) << "Music"
                                     << "Song;Solo;playing;3.5;215";
    QTest::newRow("unsigned length") << player("Playing", with(song, "mpris:length", quint64(2'000'000))) << "Spotify"
                                     << "Song;Band;playing;3.5;2";
    QTest::newRow("length zero, position text") << player("Playing", with(song, "mpris:length", 0), "3.5") << "Music"
                                                << "Song;Band;playing;-;-";
    QTest::newRow("browser title") << player("Playing", QVariantMap{{"xesam:title", "(1) Lo-fi · Cat - YouTube"}})
                                   << "Chrome"
                                   << "Lo-fi;Cat;playing;3.5;-";
    QTest::newRow("browser site alone") << player("Playing", QVariantMap{{"xesam:title", "YouTube"}}) << "Chrome"
                                        << "none";
    QTest::newRow("browser with artist") << player("Paused", song) << "Chrome"
                                         << "Song;Band;paused;3.5;215";
}

void MprisPlayersTest::records()
{
    QFETCH(QVariantMap, properties);
    QFETCH(QString, source);
    QFETCH(QString, record);
    ArtworkCache cache;
    const auto read = MprisRecord::read(properties, source, kMpv, cache, 0);
    const auto number = [](const std::optional<double> &v) { return v ? QString::number(*v) : QString("-"); };
    const QString got = read ? QStringList{read->title, read->artist, read->isPlaying ? "playing" : "paused",
                                           number(read->elapsed), number(read->duration)}
                                   .join(';')
                             : QString("none");
    QCOMPARE(got, record);
}

void MprisPlayersTest::readsWhatMpvPlays()
{
    MprisMediaPlayers players(m_bus, m_clock);
    QTRY_VERIFY(players.anyPlayerRunning());
    std::optional<NowPlaying> now;
    QTRY_VERIFY_WITH_TIMEOUT((now = read(players)) && now->duration, 20000);
    QCOMPARE(now->title, "Test Tone");
    QCOMPARE(now->artist, "The Sines");
    QVERIFY(now->isPlaying);
    QCOMPARE(now->source, "Music");
    QCOMPARE(now->player, kMpv);
    QCOMPARE(qRound(*now->duration), 60);
    QVERIFY(now->elapsed && *now->elapsed >= 0 && *now->elapsed <= 60);
    QCOMPARE(now->capturedAt, m_clock.now());
    QVERIFY(now->artwork);
    QCOMPARE(now->artwork->url, QUrl::fromLocalFile(m_peers.cover()));
    QCOMPARE(read(players)->artwork, now->artwork); // the same cover object: nothing new to publish
}

void MprisPlayersTest::playPauseReachesThePlayer()
{
    MprisMediaPlayers players(m_bus, m_clock);
    AppActivity activity({}, {});
    IslandScheduler scheduler(m_clock, activity, nullptr);
    IslandSettings settings(m_home.paths().settingsFile());
    IslandMedia media(players, scheduler, settings, m_home.paths(), m_clock, {});
    QTRY_VERIFY(players.anyPlayerRunning());
    media.refresh();
    QTRY_VERIFY_WITH_TIMEOUT(media.now() && media.now()->isPlaying, 20000);
    QVERIFY(media.canControlNowPlaying());
    for (bool playing : {false, true}) {
        // The player may take a moment after its answer to change its state: a later poll shows it.
        media.send(MediaCommand::PlayPause);
        QTRY_VERIFY_WITH_TIMEOUT((media.refresh(), media.now() && media.now()->isPlaying == playing), 10000);
    }
    QVERIFY(!media.controlBlockedReason());
}

void MprisPlayersTest::secondAndVanishingPlayers()
{
    MprisMediaPlayers players(m_bus, m_clock);
    QTRY_VERIFY(players.anyPlayerRunning());
    QTRY_VERIFY(read(players));
    bool done = false;
    players.send(*read(players), MediaCommand::PlayPause, [&] { done = true; });
    QTRY_VERIFY(done);
    QTRY_VERIFY(!read(players)->isPlaying);

    QString name; // a playing player wins over a paused one of the same source
    QProcess *second = secondMpv(name);
    QVERIFY(second);
    QTRY_VERIFY_WITH_TIMEOUT(read(players) && read(players)->player == name && read(players)->isPlaying, 20000);

    QSignalSpy gone(&players, &MediaPlayers::playerGone);
    second->kill(); // the player vanishes: its record goes with it
    QVERIFY(gone.wait(10000));
    QCOMPARE(gone.first().first().toString(), name);
    QCOMPARE(read(players)->player, kMpv);
    m_peers.end(second);

    done = false; // back to playing for the tests after
    players.send(*read(players), MediaCommand::PlayPause, [&] { done = true; });
    QTRY_VERIFY(done);
}

void MprisPlayersTest::silentAndGarbledPlayersBlockNobody()
{
    QThread thread; // the stand-in answers from a thread of its own
    StandInGarbage garbage;
    thread.start();
    garbage.moveToThread(&thread);
    QDBusConnection garbled = QDBusConnection::connectToBus(m_peers.address(), QStringLiteral("garbled"));
    QVERIFY(garbled.registerObject("/org/mpris/MediaPlayer2", &garbage, QDBusConnection::ExportAllProperties));
    QVERIFY(garbled.registerService(MprisRecord::kNamePrefix + QStringLiteral("garbage")));

    QString name; // a player that hangs: frozen, it answers nothing
    QProcess *silent = secondMpv(name);
    QVERIFY(silent);
    test::PrivatePlayers::freeze(*silent, true);

    MprisMediaPlayers players(m_bus, m_clock);
    QSignalSpy notes(&players, &MediaPlayers::note);
    QTRY_COMPARE(players.names().size(), 3);
    int ticks = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
    ticker.start(0);
    std::optional<std::optional<NowPlaying>> answer;
    players.readPlayers([&](const std::optional<NowPlaying> &record) { answer = record; });
    QCOMPARE(ticks, 0);
    QTRY_VERIFY_WITH_TIMEOUT(answer, 10000);
    QVERIFY(ticks > 1);                // the main thread went on while the silent player kept the answer back
    QCOMPARE((*answer)->player, kMpv); // the others give no record
    QCOMPARE(notes.count(), 1);
    QVERIFY(notes.first().first().toString().startsWith("no answer from " + name + ": "));

    m_peers.end(silent);
    QDBusConnection::disconnectFromBus(QStringLiteral("garbled"));
    thread.quit();
    thread.wait();
}

QTEST_GUILESS_MAIN(MprisPlayersTest)
#include "MprisPlayersTest.moc"
