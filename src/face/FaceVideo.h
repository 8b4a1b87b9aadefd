#pragma once

#include <QImage>
#include <QQuickPaintedItem>
#include <QUrl>

class QMediaPlayer;
class QVideoFrame;
class QVideoSink;

namespace vaxo {

// Plays one video file silently, filling the item (cropping what overflows), in an endless loop or
// once, stopping on its last frame. Setting the same source again never restarts it; `playing` only
// pauses and resumes, so a paused video holds its frame. One video at a time: a new source removes the
// old picture before the new one shows.
class FaceVideo : public QQuickPaintedItem {
    Q_OBJECT
    Q_PROPERTY(QUrl source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(bool loops READ loops WRITE setLoops NOTIFY loopsChanged)
    Q_PROPERTY(bool playing READ playing WRITE setPlaying NOTIFY playingChanged)
    Q_PROPERTY(bool hasFrame READ hasFrame NOTIFY hasFrameChanged)
public:
    explicit FaceVideo(QQuickItem *parent = nullptr);
    ~FaceVideo() override;

    QUrl source() const { return m_loaded; }
    void setSource(const QUrl &url);
    bool loops() const { return m_loops; }
    void setLoops(bool loops);
    bool playing() const { return m_wantsPlay; }
    void setPlaying(bool playing);
    // A frame of the video is showing.
    bool hasFrame() const { return !m_frame.isNull(); }

    void paint(QPainter *painter) override;

signals:
    void sourceChanged();
    void loopsChanged();
    void playingChanged();
    void hasFrameChanged();

private:
    void load(const QUrl &url);
    void teardown();
    void showFrame(const QVideoFrame &frame);

    // Children of this item while a file is loaded: made only then, since the first player or sink
    // starts the whole media framework.
    QMediaPlayer *m_player = nullptr;
    QVideoSink *m_sink = nullptr;
    QUrl m_loaded;
    QImage m_frame;
    bool m_loops = true;
    bool m_wantsPlay = false;
    bool m_ended = false; // a clip that plays once has reached its last frame
};

} // namespace vaxo
