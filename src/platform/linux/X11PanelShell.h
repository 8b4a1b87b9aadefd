#pragma once

#include "platform/PanelShell.h"

namespace vaxo::linux_platform {

// PanelShell on X11: EWMH window states for the window manager, and the SHAPE extension for the
// input region (and the bounding region when no compositing manager runs).
class X11PanelShell final : public PanelShell {
public:
    void prepare(QWindow &window) override;
    void setShape(QWindow &window, const QRect &rect, const QRect &drawnRect) override;

    // A compositing manager owns the _NET_WM_CM_S<screen> selection.
    static bool compositorRunning();
};

} // namespace vaxo::linux_platform
