#pragma once

#include <QObject>
#include <QPointF>
#include <QRectF>

namespace vaxo {

class Clock;
class IslandState;
class Timer;

// Decides, pointer position by pointer position, whether the island takes the pointer: hovering opens
// the card after a short delay and leaving closes it unless an alert pins it; a press elsewhere closes
// it; over a full-screen window the island hides until the pointer comes to the top centre. Main
// thread only.
class PanelPointer : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool concealed READ concealed NOTIFY concealedChanged)
public:
    static constexpr double kEnterDelay = 0.13;
    static constexpr double kLeaveDelay = 0.2;

    // Where the island is now, on the display.
    struct Frames {
        QRectF island;
        QRectF hot;
        QRectF revealZone;
    };

    PanelPointer(IslandState &state, Clock &clock, QObject *parent = nullptr);

    void setFrames(const Frames &frames) { m_frames = frames; }
    const Frames &frames() const { return m_frames; }

    // A full-screen window came or went: the island conceals or reveals itself. Then sync again.
    void setFullscreen(bool active);
    bool fullscreen() const { return m_fullscreen; }

    // The pointer is at `pointer` now.
    void sync(const QPointF &pointer);
    // A mouse button went down at `pointer`, wherever that is.
    void pressed(const QPointF &pointer);

    // The pointer is off the island: clicks reach what lies below.
    bool clickThrough() const { return m_clickThrough; }
    // Faded out beside a full-screen window.
    bool concealed() const { return !m_revealed; }

signals:
    void clickThroughChanged();
    void concealedChanged();

private:
    void setClickThrough(bool through, const QPointF &pointer);
    void setPointerInside(bool inside);
    void setRevealed(bool revealed);

    IslandState &m_state;
    Timer *m_hover;
    Frames m_frames;
    bool m_pointerInside = false;
    bool m_clickThrough = true;
    bool m_fullscreen = false;
    bool m_revealed = true; // shown; only a full-screen window conceals it
    bool m_debug;
};

} // namespace vaxo
