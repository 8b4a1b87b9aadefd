#include "face/FaceVideo.h"

#include <QMediaPlayer>
#include <QPainter>
#include <QQuickWindow>
#include <QVideoFrame>
#include <QVideoSink>

namespace vaxo {

FaceVideo::FaceVideo(QQuickItem *parent) : QQuickPaintedItem(parent) {}

FaceVideo::~FaceVideo()
{
    teardown();
}

void FaceVideo::setSource(const QUrl &url)
{
    if (url == m_loaded)
        return; // the same file is never restarted
    load(url);
    emit sourceChanged();
}

void FaceVideo::setLoops(bool loops)
{
    if (loops == m_loops)
        return;
    m_loops = loops;
    if (m_player)
        m_player->setLoops(loops ? QMediaPlayer::Infinite : QMediaPlayer::Once);
    emit loopsChanged();
}

void FaceVideo::setPlaying(bool playing)
{
    if (playing == m_wantsPlay)
        return;
    m_wantsPlay = playing;
    // A clip that played once stays on its last frame: the stopped player would start over.
    if (m_player && !m_ended)
        playing ? m_player->play() : m_player->pause();
    emit playingChanged();
}

void FaceVideo::load(const QUrl &url)
{
    teardown();
    m_loaded = url;
    if (url.isEmpty())
        return;
    // No audio output: the player is mute.
    m_player = new QMediaPlayer(this);
    m_sink = new QVideoSink(this);
    connect(m_sink, &QVideoSink::videoFrameChanged, this, &FaceVideo::showFrame);
    m_player->setVideoSink(m_sink);
    m_player->setLoops(m_loops ? QMediaPlayer::Infinite : QMediaPlayer::Once);
    connect(m_player, &QMediaPlayer::mediaStatusChanged, this, [this](QMediaPlayer::MediaStatus status) {
        if (status == QMediaPlayer::EndOfMedia && !m_loops)
            m_ended = true;
    });
    m_player->setSource(url);
    if (m_wantsPlay)
        m_player->play();
    else
        m_player->pause(); // shows the first frame
}

void FaceVideo::teardown()
{
    if (m_player) {
        m_player->stop();
        delete m_player;
        delete m_sink;
        m_player = nullptr;
        m_sink = nullptr;
    }
    m_loaded.clear();
    m_ended = false;
    if (!m_frame.isNull()) {
        m_frame = QImage();
        emit hasFrameChanged();
        update();
    }
}

void FaceVideo::showFrame(const QVideoFrame &frame)
{
    // The player clears its picture when it stops; the last frame stays.
    if (!frame.isValid() || !m_player)
        return;
    const qreal ratio = window() ? window()->effectiveDevicePixelRatio() : 1.0;
    const QSize target = (size() * ratio).toSize();
    const bool had = !m_frame.isNull();
    m_frame = frame.toImage();
    if (!target.isEmpty())
        m_frame = m_frame.scaled(target, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    if (!had)
        emit hasFrameChanged();
    update();
}

void FaceVideo::paint(QPainter *painter)
{
    if (m_frame.isNull())
        return;
    // Aspect fill: the middle of the frame, cropped to the item's shape.
    const QSizeF shown = size().scaled(m_frame.size(), Qt::KeepAspectRatio);
    const QRectF source(QPointF((m_frame.width() - shown.width()) / 2, (m_frame.height() - shown.height()) / 2), shown);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(boundingRect(), m_frame, source);
}

} // namespace vaxo
