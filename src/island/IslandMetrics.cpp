#include "island/IslandMetrics.h"

namespace vaxo {

IslandMetrics IslandMetrics::measure(double displayWidth, double topInset, double leftArea, double rightArea)
{
    if (topInset <= 0)
        return {};
    const bool sidesKnown = leftArea >= 0 && rightArea >= 0;
    return {true, sidesKnown ? displayWidth - leftArea - rightArea : 200.0, topInset};
}

} // namespace vaxo
