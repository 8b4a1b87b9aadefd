#include "face/FaceAssets.h"
#include "face/MoodArt.h"
#include "platform/FolderWatcher.h"
#include "platform/PlatformServices.h"
#include "platform/linux/QtArtDecoder.h"

#include "FaceFiles.h"
#include "FakeClock.h"
#include "StateFixture.h"
#include "TestTable.h"

#include <QSignalSpy>
#include <QTest>

using namespace vaxo;
using test::FaceFiles;

namespace {

// The program's decoder, counting the videos it decodes.
struct CountingDecoder final : ArtDecoder {
    linux_platform::QtArtDecoder real;
    std::atomic<int> decodes = 0;
    bool isImage(const QString &path) override { return real.isImage(path); }
    QList<QByteArray> videoFrames(const QString &path, int maxFrames, int maxEdge, double fps) override
    {
        ++decodes;
        return real.videoFrames(path, maxFrames, maxEdge, fps);
    }
};

// Face artwork over a throw-away home, on the test's clock, watched for real.
struct Assets {
    Assets() : watcher(PlatformServices::newFolderWatcher()), assets(files.folders(), clock, watcher, decoder) {}

    QString user(const QString &name) const { return files.user(name); }
    QString bundled(const QString &name) const { return files.bundled(name); }
    std::optional<FaceAssets::Clip> clip(const char *mood) const { return assets.clip(QLatin1String(mood)); }
    QStringList frameNames(const char *mood) const
    {
        QStringList names;
        for (const QUrl &url : clip(mood).value_or(FaceAssets::Clip{}).frames)
            names << QFileInfo(url.toLocalFile()).fileName();
        return names;
    }
    // Loads, and waits until the video posters of the load are in.
    void loadWithVideos(const QStringList &moods)
    {
        assets.load();
        QTRY_VERIFY_WITH_TIMEOUT(
            std::all_of(moods.begin(), moods.end(), [this](const QString &m) { return assets.clips().value(m).video; }),
            30'000);
    }

    FaceFiles files;
    test::FakeClock clock;
    CountingDecoder decoder;
    FolderWatcher *watcher;
    FaceAssets assets;
};

} // namespace

class FaceAssetsTest : public QObject {
    Q_OBJECT
private slots:
    void parse_data();
    void parse();
    void fallbackChains();
    void userArtHidesBuiltInArtPerMood();
    void fileNames();
    void controlFiles_data();
    void controlFiles();
    void videosShowTheirPosters();
    void aStillBeatsAVideo();
    void postersAreDecodedOncePerFileVersion();
    void aBurstOfChangesReloadsOnce();
    void moodArtFollowsTheMood();
    void frameIndex_data();
    void frameIndex();
};

void FaceAssetsTest::parse_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("mood"); // empty: ignored
    QTest::addColumn<QByteArray>("index");
    test::rows(R"(
plain         | Working                     | working  | 0
dash          | working-2                   | working  | 2
underscore    | working_03                  | working  | 3
space         | working 4                   | working  | 4
padded        |  Busy-12                    | busy     | 12
separators    | sleeping_-_7                | sleeping | 7
no number     | pleased-                    | pleased  | 0
digits inside | wait1ing                    |          |
other word    | workingface                 |          |
number only   | 2                           |          |
unknown mood  | happy-1                     |          |
long number   | resting99999999999999999999 | resting  | 9223372036854775807
)");
}

void FaceAssetsTest::parse()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, mood);
    QFETCH(QByteArray, index);
    const auto parsed = FaceAssets::parse(QString::fromUtf8(name));
    QCOMPARE(parsed.has_value(), !mood.isEmpty());
    if (parsed)
        QCOMPARE(*parsed, std::pair(QString::fromUtf8(mood), index.toLongLong()));
}

void FaceAssetsTest::fallbackChains()
{
    const auto chain = [](const char *mood) { return FaceAssets::fallbackChain(QLatin1String(mood)).join(' '); };
    QCOMPARE(chain("swamped"), "swamped busy working resting");
    QCOMPARE(chain("busy"), "busy working resting");
    QCOMPARE(chain("sleeping"), "sleeping resting");
    QCOMPARE(chain("waiting"), "waiting resting");
    QCOMPARE(chain("pleased"), "pleased resting");
    QCOMPARE(chain("resting"), "resting");
    QCOMPARE(chain("happy"), "happy");
    QCOMPARE(FaceAssets::moods().join(' '), "sleeping resting working busy swamped waiting pleased");
}

void FaceAssetsTest::userArtHidesBuiltInArtPerMood()
{
    Assets a;
    for (const char *name : {"busy-1.png", "busy-10.png", "busy-2.png"})
        FaceFiles::still(a.user(name), Qt::red);
    for (const char *name : {"busy.png", "resting.png", "working.png"})
        FaceFiles::still(a.bundled(name), Qt::blue);
    a.assets.load();
    QCOMPARE(a.frameNames("busy"), QStringList({"busy-1.png", "busy-2.png", "busy-10.png"}));
    QCOMPARE(a.clip("busy")->frames.first(), QUrl::fromLocalFile(a.user("busy-1.png")));
    QCOMPARE(a.clip("swamped"), a.clip("busy"));
    QCOMPARE(a.clip("working")->frames, QList<QUrl>{QUrl::fromLocalFile(a.bundled("working.png"))});
    QCOMPARE(a.frameNames("sleeping"), QStringList{"resting.png"});
    QCOMPARE(a.assets.userMoods(), QSet<QString>{"busy"});
    QVERIFY(!a.clip("busy")->pingPong);
    QCOMPARE(a.assets.generation(), 1);
}

void FaceAssetsTest::fileNames()
{
    Assets a;
    for (const char *name : {"Working.PNG", "workingface.png", ".working.png", "working.txt", "Sleeping_03.JPEG",
                             "resting.svg", "waiting.pdf", "busy-1.tiff", "busy-2.gif"})
        FaceFiles::still(a.user(name), Qt::green);
    test::TempHome::write(a.user("pleased.png"), "not an image");
    a.assets.load();
    QCOMPARE(a.frameNames("working"), QStringList{"Working.PNG"});
    QCOMPARE(a.frameNames("sleeping"), QStringList{"Sleeping_03.JPEG"});
    QCOMPARE(a.frameNames("resting"), QStringList{"resting.svg"});
    QCOMPARE(a.frameNames("waiting"), QStringList{"waiting.pdf"});
    QCOMPARE(a.frameNames("busy"), QStringList{"busy-1.tiff"});
    QVERIFY(!a.assets.clips().contains("pleased"));
    QCOMPARE(a.assets.clips().size(), 5);
}

void FaceAssetsTest::controlFiles_data()
{
    QTest::addColumn<QByteArray>("fpsName");
    QTest::addColumn<QByteArray>("fps");
    QTest::addColumn<QByteArray>("loop");
    QTest::addColumn<QByteArray>("expected"); // fps and ping-pong
    test::rows(R"(
none         |     |          |              | 12 wrap
at most 60   | fps | 120      |              | 60 wrap
zero         | FPS | 0        |              | 12 wrap
text         | fps | quick    |              | 12 wrap
trimmed      | Fps |  24.5    | Ping-Pong    | 24.5 ping
loop wraps   | fps | 8        | wrap         | 8 wrap
)");
}

void FaceAssetsTest::controlFiles()
{
    QFETCH(QByteArray, fpsName);
    QFETCH(QByteArray, fps);
    QFETCH(QByteArray, loop);
    QFETCH(QByteArray, expected);
    Assets a;
    FaceFiles::still(a.user("resting-1.png"), Qt::red);
    FaceFiles::still(a.bundled("busy.png"), Qt::red);
    if (!fpsName.isEmpty())
        test::TempHome::write(a.user(QString::fromUtf8(fpsName)), fps + "\n");
    if (!loop.isEmpty())
        test::TempHome::write(a.user("LOOP"), loop);
    a.assets.load();
    const QString shown =
        QStringLiteral("%1 %2").arg(a.assets.fps()).arg(a.clip("resting")->pingPong ? "ping" : "wrap");
    QCOMPARE(shown, QString::fromUtf8(expected));
    QCOMPARE(a.clip("busy")->pingPong, a.clip("resting")->pingPong);
}

void FaceAssetsTest::videosShowTheirPosters()
{
    Assets a;
    QVERIFY(FaceFiles::video(a.user("resting.mov"), "red", 96, 64));
    QVERIFY(FaceFiles::video(a.user("sleeping.mp4"), "blue", 64, 64));
    FaceFiles::still(a.bundled("resting.png"), Qt::green);
    FaceFiles::still(a.bundled("working.png"), Qt::green);
    a.loadWithVideos({"resting", "sleeping"});

    const auto resting = a.clip("resting");
    QCOMPARE(resting->video, QUrl::fromLocalFile(a.user("resting.mov")));
    QVERIFY(resting->loops);
    QCOMPARE(resting->frames.size(), 1);
    QVERIFY(FaceFiles::isMostly(resting->frames.first(), Qt::red));
    QCOMPARE(QImage(resting->frames.first().toLocalFile()).size(), QSize(96, 64));
    QVERIFY(!a.clip("sleeping")->loops);
    QVERIFY(FaceFiles::isMostly(a.clip("sleeping")->frames.first(), Qt::blue));
    // The user's video hides the built-in resting art from every mood whose chain ends there.
    QCOMPARE(a.clip("waiting"), resting);
    QCOMPARE(a.clip("pleased"), resting);
    QCOMPARE(a.frameNames("working"), QStringList{"working.png"});
    QCOMPARE(a.clip("swamped"), a.clip("working"));
    QCOMPARE(a.assets.userMoods(), (QSet<QString>{"resting", "sleeping"}));
}

void FaceAssetsTest::aStillBeatsAVideo()
{
    Assets a;
    FaceFiles::still(a.user("working.png"), Qt::red);
    QVERIFY(FaceFiles::video(a.user("working.mp4"), "blue", 64, 64));
    // Posters come back in order: once the built-in one is in, the user's has been turned down.
    QVERIFY(FaceFiles::video(a.bundled("busy.mp4"), "green", 64, 64));
    a.loadWithVideos({"busy"});
    QCOMPARE(a.decoder.decodes, 2);
    QVERIFY(!a.clip("working")->video);
    QCOMPARE(a.frameNames("working"), QStringList{"working.png"});
}

void FaceAssetsTest::postersAreDecodedOncePerFileVersion()
{
    Assets a;
    QVERIFY(FaceFiles::video(a.user("waiting.mp4"), "red", 64, 48));
    a.loadWithVideos({"waiting"});
    QCOMPARE(a.decoder.decodes, 1);
    const QList<QUrl> poster = a.clip("waiting")->frames;
    QVERIFY(poster.first().toLocalFile().startsWith(a.files.home.paths().faceFrames() + "/waiting.mp4-"));

    // Later loads, in this program or the next, read the poster from the cache.
    a.loadWithVideos({"waiting"});
    FaceAssets next(a.files.folders(), a.clock, PlatformServices::newFolderWatcher(), a.decoder);
    next.load();
    QTRY_VERIFY(next.clips().value("waiting").video);
    QCOMPARE(next.clips().value("waiting").frames, poster);
    QCOMPARE(a.decoder.decodes, 1);
    QCOMPARE(a.assets.frames(QUrl::fromLocalFile(a.user("waiting.mp4")), 1, 512, 1), poster);

    // A replaced file is decoded afresh.
    QVERIFY(FaceFiles::video(a.user("waiting.mp4"), "blue", 80, 48));
    a.loadWithVideos({"waiting"});
    QCOMPARE(a.decoder.decodes, 2);
    QVERIFY(FaceFiles::isMostly(a.clip("waiting")->frames.first(), Qt::blue));
}

void FaceAssetsTest::aBurstOfChangesReloadsOnce()
{
    Assets a;
    a.assets.watch();
    QVERIFY(QFileInfo(a.user("")).isDir());
    QSignalSpy loads(&a.assets, &FaceAssets::generationChanged);
    QSignalSpy events(a.watcher, &FolderWatcher::changed);
    const QString source = a.files.home.root() + "/frame.png";
    FaceFiles::still(source, Qt::red);
    for (int i = 1; i <= 10; ++i)
        QVERIFY(QFile::copy(source, a.user(QStringLiteral("busy-%1.png").arg(i))));
    QVERIFY(events.wait());
    a.clock.advance(0.2);
    QCOMPARE(loads.count(), 0);
    // Another change restarts the wait.
    QVERIFY(QFile::copy(source, a.user("busy-11.png")));
    QVERIFY(events.wait());
    a.clock.advance(0.2);
    QCOMPARE(loads.count(), 0);
    a.clock.advance(0.05);
    QCOMPARE(loads.count(), 1);
    QCOMPARE(a.clip("busy")->frames.size(), 11);
    a.clock.advance(5);
    QCOMPARE(loads.count(), 1);
}

void FaceAssetsTest::moodArtFollowsTheMood()
{
    Assets a;
    test::StateFixture fixture(a.clock);
    MoodArt art(a.assets, fixture.state);
    QSignalSpy changed(&art, &MoodArt::changed);
    QCOMPARE(art.kind(), MoodArt::Kind::Drawn);
    FaceFiles::still(a.user("busy-1.png"), Qt::red);
    FaceFiles::still(a.user("busy-2.png"), Qt::red);
    test::TempHome::write(a.user("fps"), "24");
    a.assets.load();
    QCOMPARE(changed.count(), 1); // the frame rate; resting still has no art
    QCOMPARE(art.kind(), MoodArt::Kind::Drawn);
    AgentSession working;
    working.status = QStringLiteral("working");
    working.id = QStringLiteral("a");
    AgentSession other = working;
    other.id = QStringLiteral("b");
    fixture.state.apply({working, other});
    QCOMPARE(changed.count(), 2);
    QCOMPARE(art.kind(), MoodArt::Kind::Still);
    QCOMPARE(art.frames().size(), 2);
    QCOMPARE(art.frameInterval(), 42);
    a.assets.load();
    QCOMPARE(changed.count(), 2);
}

void FaceAssetsTest::frameIndex_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("pingPong");
    QTest::addColumn<QList<int>>("indices"); // for steps 0, 1, 2, ...
    QTest::newRow("wrap") << 3 << false << QList<int>{0, 1, 2, 0, 1, 2, 0};
    QTest::newRow("ping-pong") << 4 << true << QList<int>{0, 1, 2, 3, 2, 1, 0, 1, 2, 3};
    QTest::newRow("ping-pong of two") << 2 << true << QList<int>{0, 1, 0, 1};
    QTest::newRow("one frame") << 1 << true << QList<int>{0, 0, 0};
    QTest::newRow("none") << 0 << false << QList<int>{0, 0};
}

void FaceAssetsTest::frameIndex()
{
    QFETCH(int, count);
    QFETCH(bool, pingPong);
    QFETCH(QList<int>, indices);
    for (int step = 0; step < indices.size(); ++step)
        QCOMPARE(MoodArt::frameIndex(step, count, pingPong), indices[step]);
}

QTEST_MAIN(FaceAssetsTest)
#include "FaceAssetsTest.moc"
