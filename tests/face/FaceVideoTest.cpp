#include "face/FaceVideo.h"

#include "FaceFiles.h"

#include <QMediaPlayer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

using namespace vaxo;

namespace {

// A face-sized video on the island's black.
struct Stage {
    Stage()
    {
        window.setColor(Qt::black);
        window.resize(64, 64);
        video = new FaceVideo(window.contentItem());
        video->setSize(QSizeF(64, 64));
        window.show();
    }
    QMediaPlayer *player() const { return video->findChild<QMediaPlayer *>(); }
    int players() const { return int(video->findChildren<QMediaPlayer *>().size()); }
    bool shows(const QColor &color) { return test::FaceFiles::isMostly(window.grabWindow(), color); }

    test::FaceFiles files;
    QQuickWindow window;
    FaceVideo *video;
};

} // namespace

class FaceVideoTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    void oneFileOneLayer()
    {
        Stage stage;
        const QString red = stage.files.user("resting.mp4");
        const QString green = stage.files.user("working.mp4");
        QVERIFY(test::FaceFiles::video(red, "red", 64, 64));
        QVERIFY(test::FaceFiles::video(green, "lime", 64, 64));
        QSignalSpy changed(stage.video, &FaceVideo::sourceChanged);
        stage.video->setSource(QUrl::fromLocalFile(red));
        QMediaPlayer *player = stage.player();
        for (int i = 0; i < 10; ++i)
            stage.video->setSource(QUrl::fromLocalFile(red));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(stage.players(), 1);
        QCOMPARE(stage.player(), player);
        QVERIFY(player->audioOutput() == nullptr); // mute

        // Paused, it shows its first frame; playing and pausing keep the player.
        QTRY_VERIFY(stage.video->hasFrame());
        QTRY_VERIFY(stage.shows(Qt::red));
        stage.video->setPlaying(true);
        QTRY_COMPARE(player->playbackState(), QMediaPlayer::PlayingState);
        stage.video->setPlaying(false);
        QTRY_COMPARE(player->playbackState(), QMediaPlayer::PausedState);
        QCOMPARE(stage.player(), player);
        QVERIFY(stage.video->hasFrame());

        // A new file: the old picture went with its player before the new one came.
        QSignalSpy frames(stage.video, &FaceVideo::hasFrameChanged);
        stage.video->setSource(QUrl::fromLocalFile(green));
        QCOMPARE(stage.players(), 1);
        QVERIFY(!stage.video->hasFrame());
        QTRY_VERIFY(stage.shows(Qt::green));
        QCOMPARE(frames.count(), 2);
        stage.video->setSource(QUrl());
        QCOMPARE(stage.players(), 0);
        QTRY_VERIFY(stage.shows(Qt::black));
    }

    void aClipThatPlaysOnceStopsOnItsLastFrame()
    {
        Stage stage;
        const QString file = stage.files.user("sleeping.mp4");
        QVERIFY(test::FaceFiles::video(file, "red", 64, 64, "blue"));
        stage.video->setLoops(false);
        stage.video->setPlaying(true);
        stage.video->setSource(QUrl::fromLocalFile(file));
        QTRY_COMPARE_WITH_TIMEOUT(stage.player()->mediaStatus(), QMediaPlayer::EndOfMedia, 20'000);
        QTRY_VERIFY(stage.shows(Qt::blue));
        // Asked to play again (the gate opening once more), it stays on its last frame.
        stage.video->setPlaying(false);
        stage.video->setPlaying(true);
        QCOMPARE(stage.player()->mediaStatus(), QMediaPlayer::EndOfMedia);
        QVERIFY(stage.shows(Qt::blue));
    }
};

QTEST_MAIN(FaceVideoTest)
#include "FaceVideoTest.moc"
