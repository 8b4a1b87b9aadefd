#include "face/FaceFeatures.h"

#include "face/FacePainter.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace vaxo {

QColor FaceFeatures::inkColor()
{
    return {0x19, 0x18, 0x27};
}

QPen FaceFeatures::ink(double width)
{
    return QPen(inkColor(), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

double FaceFeatures::line(double units, double minPixels) const
{
    return std::max(units, minPixels * px);
}

void FaceFeatures::draw() const
{
    const double w = body.width();
    const double h = body.height();
    const QPointF gaze(pose.gazeX * w * 0.06, pose.gazeY * h * 0.06);
    const QPointF eyes(50 + gaze.x(), body.top() + h * 0.46 + gaze.y());
    // Where only a few pixels are hers, her eyes are all there is of her face: larger, further apart.
    const double tiny = std::clamp((28 - pixels) / 10, 0.0, 1.0);
    const double eyeW = w * 0.15 * pose.eyeScale * (1 + 0.4 * tiny);
    const double eyeH = h * 0.25 * pose.eyeScale * (1 + 0.25 * tiny);
    const double apart = w * (0.2 + 0.03 * tiny);

    p.setPen(Qt::NoPen);
    if (pixels >= FacePainter::kCheeksFrom) {
        // Pink over any body colour: strong enough to stay pink on the green of joy.
        QColor cheek(0xff, 0x8c, 0xaa);
        cheek.setAlphaF(pose.blush ? 0.8f : 0.38f);
        p.setBrush(cheek);
        for (double side : {-1.0, 1.0})
            p.drawEllipse(QPointF(50 + side * w * 0.32, eyes.y() + h * 0.17), w * 0.075, h * 0.042);
        if (pose.sweat)
            sweat();
    }
    for (double side : {-1.0, 1.0}) {
        const QPointF centre(eyes.x() + side * apart, eyes.y());
        eye(centre, eyeW, eyeH);
        if (pose.brows != 0 && pixels >= FacePainter::kBrowsFrom)
            brow(centre - QPointF(0, eyeH * 0.78 + h * 0.03), eyeW, side < 0);
    }
    if (pixels >= FacePainter::kMouthFrom)
        mouth(QPointF(50 + gaze.x() * 0.5, body.top() + h * 0.7 + gaze.y() * 0.4));
}

void FaceFeatures::eye(QPointF c, double w, double h) const
{
    using Eyes = FacePose::Eyes;
    if (pose.eyes != Eyes::Open) {
        // Shut in sleep (a curve that sags), or smiling (a curve that rises).
        const double bend = pose.eyes == Eyes::Closed ? 0.42 : -0.62;
        const double lift = pose.eyes == Eyes::Closed ? 0 : 0.14;
        QPainterPath path(QPointF(c.x() - w * 0.62, c.y() + h * lift));
        path.quadTo(QPointF(c.x(), c.y() + h * bend), QPointF(c.x() + w * 0.62, c.y() + h * lift));
        p.strokePath(path, ink(line(w * 0.4, 1.3)));
        return;
    }
    const double open = h * pose.openness;
    if (open < std::max(h * 0.14, 1.4 * px)) {
        QPainterPath lid(QPointF(c.x() - w * 0.55, c.y() + h * 0.1));
        lid.quadTo(QPointF(c.x(), c.y() + h * 0.22), QPointF(c.x() + w * 0.55, c.y() + h * 0.1));
        p.strokePath(lid, ink(line(h * 0.13, 1.1)));
        return;
    }
    // The lids close towards a line a little below the middle; concentration lowers the upper lid flat.
    const QRectF ball(c.x() - w / 2, c.y() + h * 0.1 - open * 0.6, w, open);
    QPainterPath eye;
    eye.addEllipse(ball);
    if (pose.lid > 0) {
        QPainterPath cut;
        cut.addRect(
            QRectF(ball.left() - 1, ball.top() + ball.height() * 0.42 * pose.lid, ball.width() + 2, ball.height()));
        eye = eye.intersected(cut);
    }
    p.setBrush(inkColor());
    p.drawPath(eye);
    if (pixels >= FacePainter::kShineFrom && pose.openness > 0.5) {
        p.setBrush(Qt::white);
        const double top = ball.top() + ball.height() * 0.42 * pose.lid;
        const double shine = std::max(w * 0.2, 0.75 * px);
        p.drawEllipse(QPointF(c.x() - w * 0.14, top + (ball.bottom() - top) * 0.3), shine, shine);
        if (pixels >= FacePainter::kCheeksFrom)
            p.drawEllipse(QPointF(c.x() + w * 0.17, top + (ball.bottom() - top) * 0.7), w * 0.09, w * 0.09);
    }
}

} // namespace vaxo
