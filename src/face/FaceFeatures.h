#pragma once

#include "face/FacePose.h"

#include <QPen>
#include <QRectF>

class QPainter;

namespace vaxo {

// The face on the body: eyes, mouth, eyebrows, cheeks and sweat, in the units of FacePainter, placed
// on the body's rectangle and following her gaze. Details appear from FacePainter's pixel sizes on.
struct FaceFeatures {
    QPainter &p;
    QRectF body;
    const FacePose &pose;
    double px;     // one device pixel, in units
    double pixels; // her side in device pixels

    void draw() const;

private:
    void eye(QPointF centre, double width, double height) const;
    void mouth(QPointF centre) const;
    void brow(QPointF centre, double width, bool left) const;
    void sweat() const;
    // A line width in units that is never thinner than minPixels device pixels.
    double line(double units, double minPixels = 1.2) const;
    // An ink pen, for her eyes, mouth and eyebrows.
    static QPen ink(double width);
    static QColor inkColor();
};

} // namespace vaxo
