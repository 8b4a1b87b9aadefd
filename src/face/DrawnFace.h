#pragma once

#include "island/Mood.h"

#include <QColor>
#include <QQuickPaintedItem>
#include <QTimer>

namespace vaxo {

// The built-in character, drawn for her mood at the item's size (the largest square that fits,
// centred), crisp at any scale. While `animating` she blinks, looks about and moves to her mood's beat,
// drawing a frame only when something on her moves; otherwise she holds still, eyes open, and no timer
// runs.
class DrawnFace : public QQuickPaintedItem {
    Q_OBJECT
    Q_PROPERTY(vaxo::Mood mood READ mood WRITE setMood NOTIFY moodChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(bool calm READ calm WRITE setCalm NOTIFY calmChanged)
    Q_PROPERTY(bool animating READ animating WRITE setAnimating NOTIFY animatingChanged)
public:
    explicit DrawnFace(QQuickItem *parent = nullptr);

    Mood mood() const { return m_mood; }
    void setMood(Mood mood);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    bool calm() const { return m_calm; }
    void setCalm(bool calm);
    bool animating() const { return m_animating; }
    void setAnimating(bool animating);

    void paint(QPainter *painter) override;

signals:
    void moodChanged();
    void colorChanged();
    void calmChanged();
    void animatingChanged();

private:
    // Draws the present moment and sets the clock for the next frame that differs.
    void tick();
    static double now(); // seconds on a steady clock, shared by every face so that they blink together

    QTimer *m_clock;
    Mood m_mood = Mood::Resting;
    QColor m_color = QColor(0x0a, 0x84, 0xff);
    bool m_calm = false;
    bool m_animating = false;
    double m_time = 0;
    double m_changedAt = -1e9;
};

} // namespace vaxo
