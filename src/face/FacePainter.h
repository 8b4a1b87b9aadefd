#pragma once

#include "face/FacePose.h"

#include <QColor>

class QPainter;

namespace vaxo {

// Draws the character in a pose, in the square of side `side` at the painter's origin: a soft rounded
// body in her mood's colour, dark eyes, a mouth. Details come in as there are pixels for them (`pixels`
// is the side in device pixels): the shine in her eyes, cheeks, eyebrows, the drop of sweat and, from
// 48 pixels, the antenna whose bulb lights up on a beat.
class FacePainter {
public:
    static void paint(QPainter &painter, double side, double pixels, const FacePose &pose, const QColor &color);

    static constexpr double kShineFrom = 16;  // device pixels from which her eyes shine
    static constexpr double kMouthFrom = 22;  // her mouth
    static constexpr double kCheeksFrom = 32; // cheeks, body highlight, sweat
    static constexpr double kBrowsFrom = 40;
    static constexpr double kAntennaFrom = 48;
};

} // namespace vaxo
