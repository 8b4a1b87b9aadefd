#pragma once

#include <QObject>
#include <QString>
#include <QUrl>

namespace vaxo {

class AppActivity;
class Clock;
class IslandMedia;
class Timer;

// The music tab of the card, the collapsed island's music line and the settings card's music row: what
// plays, where it is, and the three buttons. The position moves once a second, and only while the tab
// is shown, the track plays and the animation gate is open; otherwise no timer runs. Main thread only.
class MusicSection : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool shown READ shown WRITE setShown NOTIFY shownChanged)
    Q_PROPERTY(bool hasTrack READ hasTrack NOTIFY trackChanged)
    Q_PROPERTY(QString title READ title NOTIFY trackChanged)
    Q_PROPERTY(QString artist READ artist NOTIFY trackChanged)
    Q_PROPERTY(QString source READ source NOTIFY trackChanged)
    Q_PROPERTY(QUrl artwork READ artwork NOTIFY trackChanged)
    Q_PROPERTY(bool playing READ playing NOTIFY trackChanged)
    Q_PROPERTY(QString durationText READ durationText NOTIFY trackChanged)
    Q_PROPERTY(QString stripText READ stripText NOTIFY trackChanged)
    Q_PROPERTY(double allowance READ allowance NOTIFY trackChanged)
    Q_PROPERTY(double progress READ progress NOTIFY positionChanged)
    Q_PROPERTY(QString elapsedText READ elapsedText NOTIFY positionChanged)
    Q_PROPERTY(bool canControl READ canControl NOTIFY controlChanged)
    Q_PROPERTY(QString controlNote READ controlNote NOTIFY controlChanged)
    Q_PROPERTY(QString emptyText READ emptyText CONSTANT)

public:
    static constexpr double kTick = 1;

    // The references must outlive the section.
    MusicSection(IslandMedia &media, const AppActivity &activity, Clock &clock, QObject *parent = nullptr);

    bool shown() const { return m_shown; }
    void setShown(bool shown);

    bool hasTrack() const { return m_track.has; }
    QString title() const { return m_track.title; }
    QString artist() const { return m_track.artist; }
    QString source() const { return m_track.source; }
    QUrl artwork() const { return m_track.artwork; }
    bool playing() const { return m_track.playing; }
    QString durationText() const { return m_track.durationText; }
    QString stripText() const { return m_track.stripText; }
    double allowance() const { return m_track.allowance; }
    double progress() const { return m_position.progress; }
    QString elapsedText() const { return m_position.elapsedText; }
    bool canControl() const { return m_control.can; }
    QString controlNote() const { return m_control.note; }
    QString emptyText() const;
    // The position moves on its own now.
    bool ticking() const;

    Q_INVOKABLE void playPause();
    Q_INVOKABLE void next();
    Q_INVOKABLE void previous();

signals:
    void shownChanged();
    void trackChanged();
    void positionChanged();
    void controlChanged();

private:
    struct Track {
        bool has = false;
        QString title, artist, source;
        QUrl artwork;
        bool playing = false;
        QString durationText, stripText;
        double allowance = 0;
        bool operator==(const Track &) const = default;
    };
    struct Position {
        double progress = 0;
        QString elapsedText;
        bool operator==(const Position &) const = default;
    };
    struct Control {
        bool can = false;
        QString note;
        bool operator==(const Control &) const = default;
    };
    void readTrack();
    void readPosition();
    void readControl();
    // Runs the timer exactly while the position can be seen to move.
    void updateTicker();

    IslandMedia &m_media;
    const AppActivity &m_activity;
    Clock &m_clock;
    Timer *m_ticker;
    bool m_shown = false;
    Track m_track;
    Position m_position;
    Control m_control;
};

} // namespace vaxo
