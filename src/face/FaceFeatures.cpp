#include "face/FaceFeatures.h"

#include "face/FacePainter.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vaxo {
namespace {

const QColor kInk(0x19, 0x18, 0x27);

QPen inkPen(double width)
{
    return QPen(kInk, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

} // namespace

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
        p.strokePath(path, inkPen(line(w * 0.4, 1.3)));
        return;
    }
    const double open = h * pose.openness;
    if (open < std::max(h * 0.14, 1.4 * px)) {
        QPainterPath lid(QPointF(c.x() - w * 0.55, c.y() + h * 0.1));
        lid.quadTo(QPointF(c.x(), c.y() + h * 0.22), QPointF(c.x() + w * 0.55, c.y() + h * 0.1));
        p.strokePath(lid, inkPen(line(h * 0.13, 1.1)));
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
    p.setBrush(kInk);
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
        p.strokePath(path, inkPen(width));
        return;
    case Mouth::Flat:
        path.moveTo(c.x() - w * 0.05, c.y() + h * 0.015);
        path.quadTo(QPointF(c.x(), c.y() + h * 0.035), QPointF(c.x() + w * 0.05, c.y() + h * 0.015));
        p.strokePath(path, inkPen(width));
        return;
    case Mouth::Round:
        p.setBrush(kInk);
        p.drawEllipse(QPointF(c.x(), c.y() + h * 0.025), std::max(w * 0.042, 0.9 * px), std::max(h * 0.052, 1.1 * px));
        return;
    case Mouth::Grin: {
        path.moveTo(c.x() - w * 0.1, c.y() - h * 0.025);
        path.cubicTo(c.x() - w * 0.09, c.y() + h * 0.15, c.x() + w * 0.09, c.y() + h * 0.15, c.x() + w * 0.1,
                     c.y() - h * 0.025);
        path.closeSubpath();
        p.setBrush(kInk);
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
        p.strokePath(path, inkPen(width));
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
    p.strokePath(path, inkPen(line(w * 0.24)));
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
