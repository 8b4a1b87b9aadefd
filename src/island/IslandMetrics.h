#pragma once

namespace vaxo {

// The notch the island hangs from, in points. A display without a notch gets an imitation one at
// its top centre.
struct IslandMetrics {
    bool hasNotch = false;
    double notchWidth = 190;
    double notchHeight = 32;

    // topInset > 0 means a notch; leftArea and rightArea are the free widths beside it, negative when
    // the platform does not report them.
    static IslandMetrics measure(double displayWidth, double topInset, double leftArea, double rightArea);

    bool operator==(const IslandMetrics &) const = default;
};

} // namespace vaxo
