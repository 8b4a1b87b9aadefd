#pragma once

#include "platform/PanelShell.h"

namespace vaxo::linux_platform {

// PanelShell on X11. The window is override-redirect: a window manager stacks a focused full-screen
// window above every window it manages, "keep above" ones included, so a managed island could never be
// revealed over one; unmanaged, it also stays off taskbars and workspaces by itself. The SHAPE extension
// gives the input region (and the bounding region when no compositing manager runs).
class X11PanelShell final : public PanelShell {
public:
    void prepare(QWindow &window) override;
    void setShape(QWindow &window, const QRect &rect, const QRect &drawnRect) override;

    // A compositing manager owns the _NET_WM_CM_S<screen> selection.
    static bool compositorRunning();
};

} // namespace vaxo::linux_platform
