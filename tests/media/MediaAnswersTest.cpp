#include "TempHome.h"
#include "TestTable.h"
#include "media/ArtworkCache.h"
#include "media/MediaLog.h"
#include "media/MediaScripts.h"
#include "media/PlayerAnswers.h"

#include <QTest>

using namespace vaxo;

namespace {

constexpr double kNow = 1'700'000'000;
const QByteArray kPng("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);

// A record in one line, so that a table compares it whole: title;artist;playing;source;elapsed;duration;art.
QByteArray describe(const std::optional<NowPlaying> &r)
{
    if (!r)
        return "none";
    const auto number = [](const std::optional<double> &v) { return v ? QByteArray::number(*v) : QByteArray("-"); };
    return (QStringList{r->title, r->artist, r->isPlaying ? "playing" : "paused", r->source}.join(';').toUtf8() + ';' +
            number(r->elapsed) + ';' + number(r->duration) + ';' + (r->artwork ? "art" : "-"));
}

// The table's "\x1f" stands for the separator, "$ART" for the URL of a real cover file and "$WEB" for
// one on the web (moc would read a "//" in a table as a comment).
QString answer(const QByteArray &cell, const QString &art)
{
    return QString::fromUtf8(cell)
        .replace(QLatin1String("\\x1f"), QString(QChar(MediaScripts::kFieldSeparator)))
        .replace(QLatin1String("$ART"), art)
        .replace(QLatin1String("$WEB"), QLatin1String("https://i.scdn.co/image/ab67616d0000b273"));
}

} // namespace

class MediaAnswersTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        m_cover = m_home.root() + "/cover.png";
        test::TempHome::write(m_cover, kPng);
        test::TempHome::write(m_home.root() + "/notes.txt", "not an image");
    }
    void playerScripts_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QByteArray>("record");
        test::rows(R"(
stopped Music          | Music   |                                                    | none
two fields             | Music   | Song\x1fArtist                                     | none
no title               | Music   | \x1fArtist\x1fplaying\x1f1\x1f2                    | none
Music playing          | Music   | Song\x1fArtist\x1fplaying\x1f12.5\x1f215.3         | Song;Artist;playing;Music;12.5;215.3;-
Music paused           | Music   | Song\x1f\x1fpaused\x1f0\x1f215                     | Song;;paused;Music;0;215;-
decimal comma          | Music   | Song\x1fArtist\x1fplaying\x1f12,5\x1f215           | Song;Artist;playing;Music;-;215;-
fields missing         | Music   | Song\x1fArtist\x1fplaying                          | Song;Artist;playing;Music;-;-;-
Spotify milliseconds   | Spotify | Song\x1fArtist\x1fplaying\x1f\x1f3.5\x1f215000     | Song;Artist;playing;Spotify;3.5;215;-
Spotify file artwork   | Spotify | Song\x1fArtist\x1fpaused\x1f$ART\x1f1\x1f2000      | Song;Artist;paused;Spotify;1;2;art
Spotify https artwork  | Spotify | Song\x1fArtist\x1fplaying\x1f$WEB\x1f1\x1f2000 | Song;Artist;playing;Spotify;1;2;-
)");
    }
    void playerScripts()
    {
        QFETCH(QByteArray, source);
        QFETCH(QByteArray, output);
        QFETCH(QByteArray, record);
        ArtworkCache cache;
        const QString art = QUrl::fromLocalFile(m_cover).toString();
        QCOMPARE(describe(PlayerAnswers::parsePlayer(source, answer(output, art), cache, kNow)), record);
    }
    void chromeAnswers_data()
    {
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QByteArray>("record");
        test::rows(R"(
empty                 |                                                            | none
unknown prefix        | TAB:Song                                                   | none
JSON paused           | JS:{"t":"Song","a":"Band","p":true,"art":"","e":3,"d":60}  | Song;Band;paused;Chrome;3;60;-
JSON without p        | JS:{"t":"Song","a":"Band","art":"","e":null,"d":null}      | Song;Band;playing;Chrome;-;-;-
JSON p not a bool     | JS:{"t":"Song","p":"yes"}                                  | Song;;playing;Chrome;-;-;-
JSON without title    | JS:{"t":"","a":"Band","p":false}                           | none
JSON https artwork    | JS:{"t":"Song","p":false,"art":"$WEB"} | Song;;playing;Chrome;-;-;-
JSON file artwork     | JS:{"t":"Song","p":false,"art":"$ART"}                     | Song;;playing;Chrome;-;-;art
not JSON              | JS:{"t" "Song"}                                            | none
JSON not an object    | JS:["Song"]                                                | none
title fallback        | TITLE:Lo-fi Beats - YouTube                                | Lo-fi Beats;;playing;Chrome;-;-;-
)");
    }
    void chromeAnswers()
    {
        QFETCH(QByteArray, output);
        QFETCH(QByteArray, record);
        ArtworkCache cache;
        const QString art = QUrl::fromLocalFile(m_cover).toString();
        QCOMPARE(describe(PlayerAnswers::parseChrome(answer(output, art), cache, kNow)), record);
    }
    void browserTitles_data()
    {
        QTest::addColumn<QByteArray>("title");
        QTest::addColumn<QByteArray>("record");
        test::rows(R"(
counter and album     | (3) Song Name · Artist · Album - YouTube Music | Song Name;Artist;playing;Chrome;-;-;-
site alone            | YouTube                                        | none
site after its suffix | YouTube Music - YouTube                        | none
plain video           | Lo-fi Beats - YouTube                          | Lo-fi Beats;;playing;Chrome;-;-;-
both suffixes         | Song · Band - YouTube - YouTube Music          | Song;Band;playing;Chrome;-;-;-
only a counter        | (12)   - YouTube                               | none
blank                 |                                                | none
no site               | Just a page                                    | Just a page;;playing;Chrome;-;-;-
)");
    }
    void browserTitles()
    {
        QFETCH(QByteArray, title);
        QFETCH(QByteArray, record);
        QCOMPARE(describe(PlayerAnswers::parseBrowserTitle(QString::fromUtf8(title), kNow)), record);
        // The table cannot hold SoundCloud's own separator.
        QCOMPARE(describe(PlayerAnswers::parseBrowserTitle("Night Drive \u00b7 Synth Kid | SoundCloud", kNow)),
                 "Night Drive;Synth Kid;playing;Chrome;-;-;-");
    }
    void artworkOnlyFromImageFiles()
    {
        ArtworkCache cache;
        const QString cover = QUrl::fromLocalFile(m_cover).toString();
        const ArtworkRef first = cache.image(cover);
        QVERIFY(first && first->format == "png" && first->url == QUrl::fromLocalFile(m_cover));
        QCOMPARE(cache.image(cover), first); // the same object: records compare equal
        test::TempHome::write(m_home.root() + "/Album Art.png", kPng); // players write spaces as they are
        QVERIFY(cache.image("file://" + m_home.root() + "/Album Art.png"));
        for (const QString &refused : {QStringLiteral("https://example.com/cover.png"), QStringLiteral("not a url %"),
                                       QUrl::fromLocalFile(m_home.root() + "/notes.txt").toString(),
                                       QUrl::fromLocalFile(m_home.root() + "/missing.png").toString()})
            QVERIFY2(!cache.image(refused), qPrintable(refused));

        // Full at 13: the next new cover empties it, so the first comes back as a new object.
        for (int i = 2; i < ArtworkCache::kCapacity; ++i) {
            const QString path = QStringLiteral("%1/cover%2.png").arg(m_home.root()).arg(i);
            test::TempHome::write(path, kPng);
            QVERIFY(cache.image(QUrl::fromLocalFile(path).toString()));
        }
        QCOMPARE(cache.size(), ArtworkCache::kCapacity);
        QCOMPARE(cache.image(cover), first);
        test::TempHome::write(m_home.root() + "/one-more.png", kPng);
        QVERIFY(cache.image(QUrl::fromLocalFile(m_home.root() + "/one-more.png").toString()));
        QCOMPARE(cache.size(), 1);
        QVERIFY(cache.image(cover) != first);
    }
    void scriptTexts()
    {
        const QString sep(QChar(MediaScripts::kFieldSeparator));
        QCOMPARE(MediaScripts::music(),
                 "tell application \"Music\"\n  if player state is stopped then return \"\"\n  return (name of current "
                 "track) & \"" +
                     sep + "\" & (artist of current track) & \"" + sep + "\" & (player state as string) & \"" + sep +
                     "\" & (player position as string) & \"" + sep +
                     "\" & ((duration of current track) as string)\nend tell");
        QVERIFY(MediaScripts::spotify().contains("(player state as string) & \"" + sep +
                                                 "\" & (artwork url of current track) & \"" + sep + "\" & (player"));
        QCOMPARE(MediaScripts::command("Spotify", MediaCommand::Next), "tell application \"Spotify\" to next track");
        QCOMPARE(MediaScripts::command("Music", MediaCommand::PlayPause), "tell application \"Music\" to playpause");
        QCOMPARE(mediaKeyCode(MediaCommand::Previous), 18);

        const QString chrome = MediaScripts::chrome();
        const QString js = MediaScripts::chromeJavaScript();
        QVERIFY(!js.contains('"'));
        QVERIFY(chrome.contains("set r to execute t javascript \"" + js + "\"\n          if r is not \"\""));
        QCOMPARE(chrome.split('\n').size(),
                 17); // the head's seven lines, the last running the JavaScript, and the tail's ten
    }
    void logLines()
    {
        QCOMPARE(MediaLog::line(1769860800.7, "start() called, enabled=true"),
                 "[2026-01-31 12:00:00 +0000] start() called, enabled=true\n");
    }

private:
    test::TempHome m_home;
    QString m_cover;
};

QTEST_GUILESS_MAIN(MediaAnswersTest)
#include "MediaAnswersTest.moc"
