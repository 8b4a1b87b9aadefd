#include "island/summon/SummonPlacement.h"

#include <algorithm>

namespace vaxo {

int SummonPlacement::screenFor(const QList<Screen> &screens, int mainScreen)
{
    for (int i = 0; i < screens.size(); ++i)
        if (screens[i].topInset > 0)
            return i;
    if (mainScreen >= 0 && mainScreen < screens.size())
        return mainScreen;
    return screens.isEmpty() ? -1 : 0;
}

QPointF SummonPlacement::origin(const Screen &screen)
{
    const QRectF &frame = screen.frame;
    return {frame.center().x() - kSide / 2, frame.top() + std::max(screen.topInset, kMinDrop)};
}

} // namespace vaxo
