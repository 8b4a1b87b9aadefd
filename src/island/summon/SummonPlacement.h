#pragma once

#include <QList>
#include <QPointF>
#include <QRectF>

namespace vaxo {

// Where the summon panel goes: centred under the notch of the first display that has one, else under
// the top edge of the main display, at least 32 points down.
struct SummonPlacement {
    static constexpr double kSide = 260;   // the panel is square
    static constexpr double kMinDrop = 32; // the drop below the top edge without a notch

    struct Screen {
        QRectF frame;
        double topInset = 0; // the notch's height; 0 without one
    };

    // The display the panel goes on: the first with a notch, else the main one, else the first; -1
    // when there is none.
    static int screenFor(const QList<Screen> &screens, int mainScreen);
    // The panel's top-left corner on that display (y grows downward).
    static QPointF origin(const Screen &screen);
};

} // namespace vaxo
