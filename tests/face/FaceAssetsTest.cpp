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

    // What each mood shows, in the order of moods(): "-" for the drawn face, else its frames or its video
    // (":loop" or ":once"), each file as "u/<name>" for the user's or "b/<name>" for built-in art.
    QString shown() const
    {
        const auto name = [this](const QUrl &url) {
            const QString path = url.toLocalFile();
            return (path.startsWith(files.user(QString())) ? "u/" : "b/") + QFileInfo(path).fileName();
        };
        QStringList shown;
        for (const QString &mood : FaceAssets::moods()) {
            const auto c = assets.clip(mood);
            QStringList files;
            for (const QUrl &url : c ? c->frames : QList<QUrl>())
                files << name(url);
            if (c && c->video)
                files = {name(*c->video) + (c->loops ? ":loop" : ":once")};
            shown << (files.isEmpty() ? QStringLiteral("-") : files.join(',') + (c->pingPong ? ":ping" : ""));
        }
        return shown.join(' ');
    }
    // Loads, and waits until the video poster of mood is in.
    void loadWithVideo(const char *mood)
    {
        assets.load();
        QTRY_VERIFY_WITH_TIMEOUT(assets.clips().value(mood).video, 30'000);
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
    void parse_data()
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

    void parse()
    {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, mood);
        QFETCH(QByteArray, index);
        const auto parsed = FaceAssets::parse(QString::fromUtf8(name));
        QCOMPARE(parsed.has_value(), !mood.isEmpty());
        if (parsed)
            QCOMPARE(*parsed, std::pair(QString::fromUtf8(mood), index.toLongLong()));
    }

    void fallbackChains()
    {
        QStringList chains;
        for (const QString &mood : FaceAssets::moods() + QStringList{"happy"})
            chains << FaceAssets::fallbackChain(mood).join(' ');
        QCOMPARE(chains, (QStringList{"sleeping resting", "resting", "working resting", "busy working resting",
                                      "swamped busy working resting", "waiting resting", "pleased resting", "happy"}));
    }

    void load_data()
    {
        // Files are space-separated: ".mp4" and ".mov" are videos, "!" marks a file that is no image, and
        // "name:text" a control file.
        QTest::addColumn<QByteArray>("user");
        QTest::addColumn<QByteArray>("bundled");
        QTest::addColumn<QByteArray>("fps");
        QTest::addColumn<QByteArray>("shown"); // sleeping resting working busy swamped waiting pleased
        QTest::addColumn<QByteArray>("userMoods");
        const QByteArray resting =
            "u/resting.png u/resting.png u/resting.png b/busy.png b/busy.png u/resting.png u/resting.png";
        const QByteArray pingPong = QByteArray(resting).replace(".png", ".png:ping");
        test::rows(R"(
    user art hides built-in per mood | busy-1.png busy-10.png busy-2.png | busy.png resting.png working.png | 12 | b/resting.png b/resting.png b/working.png u/busy-1.png,u/busy-2.png,u/busy-10.png u/busy-1.png,u/busy-2.png,u/busy-10.png b/resting.png b/resting.png | busy
    file names | Working.PNG workingface.png .working.png working.txt Sleeping_03.JPEG resting.svg waiting.pdf busy-1.tiff busy-2.gif pleased.png! | | 12 | u/Sleeping_03.JPEG u/resting.svg u/Working.PNG u/busy-1.tiff u/busy-1.tiff u/waiting.pdf u/resting.svg | busy resting sleeping waiting working
    videos hide built-in art | resting.mov sleeping.mp4 | resting.png working.png | 12 | u/sleeping.mp4:once u/resting.mov:loop b/working.png b/working.png b/working.png u/resting.mov:loop u/resting.mov:loop | resting sleeping
    a still beats a video | working.png working.mp4 | busy.mp4 | 12 | - - u/working.png b/busy.mp4:loop b/busy.mp4:loop - - | working
    )");
        // The control files, read from the user's folder, apply to built-in art too.
        const auto control = [&](const char *name, const char *files, const char *fps, const QByteArray &shown) {
            QTest::newRow(name) << QByteArray("resting.png ") + files << QByteArray("busy.png") << QByteArray(fps)
                                << shown << QByteArray("resting");
        };
        control("fps at most 60", "fps:120", "60", resting);
        control("fps zero", "FPS:0", "12", resting);
        control("fps text", "fps:quick", "12", resting);
        control("fps trimmed, ping-pong", "Fps:24.5 LOOP:Ping-Pong", "24.5", pingPong);
        control("loop wraps", "fps:8 loop:wrap", "8", resting);
    }

    void load()
    {
        QFETCH(QByteArray, user);
        QFETCH(QByteArray, bundled);
        QFETCH(QByteArray, fps);
        QFETCH(QByteArray, shown);
        QFETCH(QByteArray, userMoods);
        Assets a;
        int videos = 0;
        for (const auto &[folder, names] :
             {std::pair(a.files.user(""), user), std::pair(a.files.bundled(""), bundled)}) {
            for (const QByteArray &name : names.split(' ')) {
                const QString path = folder + QString::fromUtf8(name.split(':')[0]).remove('!');
                if (name.contains(':'))
                    test::TempHome::write(path, name.split(':')[1] + "\n");
                else if (name.endsWith('!'))
                    test::TempHome::write(path, "not an image");
                else if (name.endsWith(".mp4") || name.endsWith(".mov"))
                    QVERIFY(FaceFiles::video(path, "red", 64, 64) && ++videos);
                else if (!name.isEmpty())
                    FaceFiles::still(path, Qt::red);
            }
        }
        a.assets.load();
        // Posters come back in the order of the load, so once the last shows every video has been turned
        // down or taken.
        QTRY_COMPARE_WITH_TIMEOUT(a.shown(), QString::fromUtf8(shown), 30'000);
        QCOMPARE(a.decoder.decodes, videos);
        QCOMPARE(a.assets.fps(), fps.toDouble());
        QStringList mine = a.assets.userMoods().values();
        mine.sort();
        QCOMPARE(mine.join(' '), QString::fromUtf8(userMoods));
        const auto clips = a.assets.clips();
        QCOMPARE(a.assets.generation(), 1 + std::count_if(clips.begin(), clips.end(), [](auto &c) { return c.video; }));
    }

    void postersAreDecodedOncePerFileVersion()
    {
        Assets a;
        QVERIFY(FaceFiles::video(a.files.user("waiting.mp4"), "red", 96, 64));
        a.loadWithVideo("waiting");
        QCOMPARE(a.decoder.decodes, 1);
        const QList<QUrl> poster = a.assets.clip("waiting")->frames;
        QCOMPARE(poster.size(), 1);
        QVERIFY(poster.first().toLocalFile().startsWith(a.files.home.paths().faceFrames() + "/waiting.mp4-"));
        const QImage image(poster.first().toLocalFile());
        QVERIFY(FaceFiles::isMostly(image, Qt::red));
        QCOMPARE(image.size(), QSize(96, 64));

        // Later loads, in this program or the next, read the poster from the cache.
        a.loadWithVideo("waiting");
        FaceAssets next(a.files.folders(), a.clock, PlatformServices::newFolderWatcher(), a.decoder);
        next.load();
        QTRY_VERIFY(next.clips().value("waiting").video);
        QCOMPARE(next.clips().value("waiting").frames, poster);
        QCOMPARE(a.decoder.decodes, 1);
        QCOMPARE(a.assets.frames(QUrl::fromLocalFile(a.files.user("waiting.mp4")), 1, 512, 1), poster);

        // A replaced file is decoded afresh.
        QVERIFY(FaceFiles::video(a.files.user("waiting.mp4"), "blue", 80, 48));
        a.loadWithVideo("waiting");
        QCOMPARE(a.decoder.decodes, 2);
        QVERIFY(FaceFiles::isMostly(QImage(a.assets.clip("waiting")->frames.first().toLocalFile()), Qt::blue));
    }

    void aBurstOfChangesReloadsOnce()
    {
        Assets a;
        a.assets.watch();
        QVERIFY(QFileInfo(a.files.user("")).isDir());
        QSignalSpy loads(&a.assets, &FaceAssets::generationChanged);
        QSignalSpy events(a.watcher, &FolderWatcher::changed);
        const QString source = a.files.home.root() + "/frame.png";
        FaceFiles::still(source, Qt::red);
        for (int i = 1; i <= 10; ++i)
            QVERIFY(QFile::copy(source, a.files.user(QStringLiteral("busy-%1.png").arg(i))));
        QVERIFY(events.wait());
        a.clock.advance(0.2);
        QCOMPARE(loads.count(), 0);
        // Another change restarts the wait.
        QVERIFY(QFile::copy(source, a.files.user("busy-11.png")));
        QVERIFY(events.wait());
        a.clock.advance(0.2);
        QCOMPARE(loads.count(), 0);
        a.clock.advance(0.05);
        QCOMPARE(loads.count(), 1);
        QCOMPARE(a.assets.clip("busy")->frames.size(), 11);
        a.clock.advance(5);
        QCOMPARE(loads.count(), 1);
    }

    void moodArtFollowsTheMood()
    {
        Assets a;
        test::StateFixture fixture(a.clock);
        MoodArt art(a.assets, fixture.state);
        QSignalSpy changed(&art, &MoodArt::changed);
        QCOMPARE(art.kind(), MoodArt::Kind::Drawn);
        FaceFiles::still(a.files.user("busy-1.png"), Qt::red);
        FaceFiles::still(a.files.user("busy-2.png"), Qt::red);
        test::TempHome::write(a.files.user("fps"), "24");
        a.assets.load();
        QCOMPARE(changed.count(), 1); // the frame rate; resting still has no art
        QCOMPARE(art.kind(), MoodArt::Kind::Drawn);
        AgentSession working;
        working.status = QStringLiteral("working");
        fixture.state.apply({working, working}); // two of them: busy
        QCOMPARE(changed.count(), 2);
        QCOMPARE(art.kind(), MoodArt::Kind::Still);
        QCOMPARE(art.frames().size(), 2);
        QCOMPARE(art.frameInterval(), 42);
        a.assets.load();
        QCOMPARE(changed.count(), 2);
    }

    void frameIndex_data()
    {
        QTest::addColumn<QByteArray>("count");
        QTest::addColumn<QByteArray>("cycle");
        QTest::addColumn<QByteArray>("indices"); // for steps 0, 1, 2, ...
        test::rows(R"(
    wrap             | 3 | wrap | 0 1 2 0 1 2 0
    ping-pong        | 4 | ping | 0 1 2 3 2 1 0 1 2 3
    ping-pong of two | 2 | ping | 0 1 0 1
    one frame        | 1 | ping | 0 0 0
    none             | 0 | wrap | 0 0
    )");
    }

    void frameIndex()
    {
        QFETCH(QByteArray, count);
        QFETCH(QByteArray, cycle);
        QFETCH(QByteArray, indices);
        QByteArrayList steps;
        for (int step = 0; step < indices.split(' ').size(); ++step)
            steps << QByteArray::number(MoodArt::frameIndex(step, count.toInt(), cycle == "ping"));
        QCOMPARE(steps.join(' '), indices);
    }
};

QTEST_MAIN(FaceAssetsTest)
#include "FaceAssetsTest.moc"
