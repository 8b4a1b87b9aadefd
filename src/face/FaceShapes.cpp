// FaceFeatures: her mouths, eyebrows and the drop of sweat.
#include "face/FaceFeatures.h"

#include "face/FacePainter.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vaxo {

void FaceFeatures::mouth(QPointF c) const
{
    using Mouth = FacePose::Mouth;
    const double w = body.width();
    const double h = body.height();
    const double width = line(w * 0.038);
    QPainterPath path;
    switch (pose.mouth) {
    case Mouth::Smile:
        path.moveTo(c.x() - w * 0.075, c.y() - h * 0.01);
        path.quadTo(QPointF(c.x(), c.y() + h * 0.085), QPointF(c.x() + w * 0.075, c.y() - h * 0.01));
        p.strokePath(path, ink(width));
        return;
    case Mouth::Flat:
        path.moveTo(c.x() - w * 0.05, c.y() + h * 0.015);
        path.quadTo(QPointF(c.x(), c.y() + h * 0.035), QPointF(c.x() + w * 0.05, c.y() + h * 0.015));
        p.strokePath(path, ink(width));
        return;
    case Mouth::Round:
        p.setBrush(inkColor());
        p.drawEllipse(QPointF(c.x(), c.y() + h * 0.025), std::max(w * 0.042, 0.9 * px), std::max(h * 0.052, 1.1 * px));
        return;
    case Mouth::Grin: {
        path.moveTo(c.x() - w * 0.1, c.y() - h * 0.025);
        path.cubicTo(c.x() - w * 0.09, c.y() + h * 0.15, c.x() + w * 0.09, c.y() + h * 0.15, c.x() + w * 0.1,
                     c.y() - h * 0.025);
        path.closeSubpath();
        p.setBrush(inkColor());
        p.drawPath(path);
        if (pixels >= FacePainter::kBrowsFrom) {
            p.save();
            p.setClipPath(path);
            p.setBrush(QColor(0xff, 0x7a, 0x93));
            p.drawEllipse(QPointF(c.x(), c.y() + h * 0.115), w * 0.065, h * 0.055);
            p.restore();
        }
        return;
    }
    case Mouth::Wavy:
        path.moveTo(c.x() - w * 0.09, c.y() + h * 0.02);
        for (int i = 1; i <= 24; ++i) {
            const double k = i / 24.0;
            path.lineTo(c.x() - w * 0.09 + w * 0.18 * k,
                        c.y() + h * 0.02 - h * 0.022 * std::sin(2 * std::numbers::pi * 2 * k));
        }
        p.strokePath(path, ink(width));
        return;
    }
}

void FaceFeatures::brow(QPointF c, double w, bool left) const
{
    // Raised: an arch; worried: the inner ends go up.
    const double inner = left ? 1 : -1;
    QPainterPath path;
    if (pose.brows > 0) {
        path.moveTo(c.x() - w * 0.55, c.y() + w * 0.1);
        path.quadTo(QPointF(c.x(), c.y() - w * 0.32), QPointF(c.x() + w * 0.55, c.y() + w * 0.1));
    } else {
        path.moveTo(c.x() - inner * w * 0.55, c.y() + w * 0.12);
        path.lineTo(c.x() + inner * w * 0.55, c.y() - w * 0.22);
    }
    p.strokePath(path, ink(line(w * 0.24)));
}

void FaceFeatures::sweat() const
{
    const double s = body.width() * 0.075;
    const QPointF c(body.right() - body.width() * 0.06, body.top() + body.height() * 0.2);
    QPainterPath drop(QPointF(c.x(), c.y() - 1.4 * s));
    drop.cubicTo(c.x() + 0.3 * s, c.y() - 0.8 * s, c.x() + 0.7 * s, c.y() - 0.3 * s, c.x() + 0.7 * s, c.y() + 0.2 * s);
    drop.arcTo(QRectF(c.x() - 0.7 * s, c.y() - 0.5 * s, 1.4 * s, 1.4 * s), 0, -180);
    drop.cubicTo(c.x() - 0.7 * s, c.y() - 0.3 * s, c.x() - 0.3 * s, c.y() - 0.8 * s, c.x(), c.y() - 1.4 * s);
    p.setBrush(QColor(0xd4, 0xf1, 0xff));
    p.drawPath(drop);
}

} // namespace vaxo
