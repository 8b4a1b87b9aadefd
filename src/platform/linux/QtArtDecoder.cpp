#include "platform/linux/QtArtDecoder.h"

#include <QBuffer>
#include <QEventLoop>
#include <QImage>
#include <QImageReader>
#include <QMediaPlayer>
#include <QTimer>
#include <QUrl>
#include <QVideoFrame>
#include <QVideoSink>

#include <cmath>

namespace vaxo::linux_platform {
namespace {

QByteArray png(const QVideoFrame &frame, int maxEdge)
{
    QImage image = frame.toImage();
    if (image.width() > maxEdge || image.height() > maxEdge)
        image = image.scaled(maxEdge, maxEdge, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

bool QtArtDecoder::isImage(const QString &path)
{
    QImageReader reader(path);
    return reader.canRead();
}

QList<QByteArray> QtArtDecoder::videoFrames(const QString &path, int maxFrames, int maxEdge, double fps)
{
    // Silent: without an audio output the player makes no sound.
    QMediaPlayer player;
    QVideoSink sink;
    player.setVideoSink(&sink);
    QEventLoop loop;
    bool done = false; // the player may fail before the loop runs
    const auto finish = [&] {
        done = true;
        loop.quit();
    };
    QTimer giveUp;
    giveUp.setSingleShot(true);
    QObject::connect(&giveUp, &QTimer::timeout, &loop, finish);

    QList<QByteArray> frames;
    QObject::connect(&sink, &QVideoSink::videoFrameChanged, &loop, [&](const QVideoFrame &frame) {
        // Paused, the player shows one frame after loading and one after each seek.
        if (!frame.isValid() || frames.size() >= maxFrames)
            return;
        frames << png(frame, maxEdge);
        const auto next = qint64(std::llround(1000.0 * double(frames.size()) / fps));
        if (frames.size() >= maxFrames || next >= player.duration())
            finish();
        else
            player.setPosition(next);
    });
    QObject::connect(&player, &QMediaPlayer::mediaStatusChanged, &loop, [&](QMediaPlayer::MediaStatus status) {
        if (status == QMediaPlayer::LoadedMedia && player.hasVideo())
            player.pause();
        else if (status == QMediaPlayer::LoadedMedia || status == QMediaPlayer::InvalidMedia ||
                 status == QMediaPlayer::EndOfMedia)
            finish();
    });
    QObject::connect(&player, &QMediaPlayer::errorOccurred, &loop, finish);

    player.setSource(QUrl::fromLocalFile(path));
    giveUp.start(kGiveUpMs);
    if (!done)
        loop.exec();
    return frames;
}

} // namespace vaxo::linux_platform
