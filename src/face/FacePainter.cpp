#include "face/FacePainter.h"

#include "face/FaceFeatures.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace vaxo {
namespace {

QColor mix(const QColor &a, const QColor &b, double k)
{
    return QColor::fromRgbF(float(a.redF() + (b.redF() - a.redF()) * k),
                            float(a.greenF() + (b.greenF() - a.greenF()) * k),
                            float(a.blueF() + (b.blueF() - a.blueF()) * k), float(a.alphaF()));
}

// A soft, slightly pear-shaped body, widest a little below the middle and flatter at the bottom.
QPainterPath bodyPath(const QRectF &r)
{
    const double cx = r.center().x();
    const double hw = r.width() / 2;
    const double waist = r.top() + r.height() * 0.54;
    const double up = (waist - r.top()) * 0.66;
    const double down = (r.bottom() - waist) * 0.8;
    QPainterPath path(QPointF(cx, r.top()));
    path.cubicTo(cx + hw * 0.72, r.top(), r.right(), waist - up, r.right(), waist);
    path.cubicTo(r.right(), waist + down, cx + hw * 0.84, r.bottom(), cx, r.bottom());
    path.cubicTo(cx - hw * 0.84, r.bottom(), r.left(), waist + down, r.left(), waist);
    path.cubicTo(r.left(), waist - up, cx - hw * 0.72, r.top(), cx, r.top());
    return path;
}

QPen roundPen(double width, const QColor &color)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

} // namespace

void FacePainter::paint(QPainter &p, double side, double pixels, const FacePose &pose, const QColor &color)
{
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(side / 100, side / 100);
    const double px = 100 / std::max(pixels, 1.0); // one device pixel, in units
    const bool antenna = pixels >= kAntennaFrom;
    // Room above her for the antenna, and for a hop.
    const QRectF body = antenna ? QRectF(10, 28, 80, 68) : QRectF(5, 11, 90, 80);
    const QColor tint = mix(color, Qt::white, (antenna ? 0.06 : 0.16) * pose.glow);

    // Squash, hop and shiver all pivot on the middle of her base.
    const QPointF base(50, body.bottom());
    p.translate(base + QPointF(pose.shake, -pose.lift));
    p.rotate(pose.tilt);
    p.scale(1 + pose.squash * 0.7, 1 - pose.squash);
    p.translate(-base);

    if (antenna) {
        const QPointF root(50, body.top() + 4);
        const QPointF bulb(57.5, body.top() - 14);
        QPainterPath stem(root);
        stem.cubicTo(50, body.top() - 6, 54, body.top() - 10, bulb.x(), bulb.y());
        p.strokePath(stem, roundPen(3.4, mix(color, Qt::black, 0.25)));
        if (pose.glow > 0) {
            QRadialGradient halo(bulb, 5 + 7 * pose.glow);
            QColor glow = mix(color, Qt::white, 0.3);
            glow.setAlphaF(float(0.6 * pose.glow));
            halo.setColorAt(0, glow);
            halo.setColorAt(1, Qt::transparent);
            p.setPen(Qt::NoPen);
            p.setBrush(halo);
            p.drawEllipse(bulb, 5 + 7 * pose.glow, 5 + 7 * pose.glow);
        }
        p.setPen(Qt::NoPen);
        p.setBrush(mix(color, Qt::white, 0.35 + 0.45 * pose.glow));
        p.drawEllipse(bulb, 5.2, 5.2);
    }

    QLinearGradient shade(0, body.top(), 0, body.bottom());
    shade.setColorAt(0, mix(tint, Qt::white, 0.28));
    shade.setColorAt(0.55, tint);
    shade.setColorAt(1, mix(tint, Qt::black, 0.16));
    p.setPen(Qt::NoPen);
    p.setBrush(shade);
    p.drawPath(bodyPath(body));
    if (pixels >= kCheeksFrom) {
        p.save();
        p.translate(body.left() + body.width() * 0.25, body.top() + body.height() * 0.15);
        p.rotate(-32);
        p.setBrush(QColor(255, 255, 255, 85));
        p.drawEllipse(QPointF(), body.width() * 0.1, body.height() * 0.05);
        p.restore();
    }

    FaceFeatures{p, body, pose, px, pixels}.draw();
    p.restore();
}

} // namespace vaxo
