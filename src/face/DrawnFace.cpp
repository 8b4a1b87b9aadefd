#include "face/DrawnFace.h"

#include "face/FacePainter.h"
#include "face/IslandFace.h"

#include <QPainter>
#include <QQuickWindow>

#include <chrono>
#include <cmath>

namespace vaxo {

DrawnFace::DrawnFace(QQuickItem *parent) : QQuickPaintedItem(parent), m_clock(new QTimer(this))
{
    setAntialiasing(true);
    m_clock->setSingleShot(true);
    m_clock->setTimerType(Qt::PreciseTimer);
    connect(m_clock, &QTimer::timeout, this, &DrawnFace::tick);
}

double DrawnFace::now()
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void DrawnFace::setMood(Mood mood)
{
    if (mood == m_mood)
        return;
    m_mood = mood;
    m_changedAt = now();
    emit moodChanged();
    m_animating ? tick() : update();
}

void DrawnFace::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    emit colorChanged();
    update();
}

void DrawnFace::setCalm(bool calm)
{
    if (calm == m_calm)
        return;
    m_calm = calm;
    emit calmChanged();
    if (m_animating)
        tick();
}

void DrawnFace::setAnimating(bool animating)
{
    if (animating == m_animating)
        return;
    m_animating = animating;
    emit animatingChanged();
    if (animating) {
        tick();
    } else {
        m_clock->stop();
        update();
    }
}

void DrawnFace::tick()
{
    m_time = now();
    update();
    const double next = IslandFace::nextFrame(m_mood, m_calm, m_time, m_changedAt);
    if (std::isfinite(next))
        m_clock->start(std::max(1, int(std::ceil((next - m_time) * 1000))));
    else
        m_clock->stop();
}

void DrawnFace::paint(QPainter *painter)
{
    const double side = std::min(width(), height());
    const double ratio = window() ? window()->effectiveDevicePixelRatio() : 1.0;
    const FacePose pose =
        m_animating ? IslandFace::pose(m_mood, m_calm, m_time, m_changedAt) : IslandFace::still(m_mood);
    painter->translate((width() - side) / 2, (height() - side) / 2);
    FacePainter::paint(*painter, side, side * ratio, pose, m_color);
}

} // namespace vaxo
