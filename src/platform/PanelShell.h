#pragma once

class QRect;
class QWindow;

namespace vaxo {

// What the island's window needs from the window system beyond a plain frameless window.
class PanelShell {
public:
    virtual ~PanelShell() = default;

    // Before the first show: a window that stays above the others (full-screen ones too), on every
    // workspace, off the taskbar, pager and window switcher, and never takes the keyboard focus.
    virtual void prepare(QWindow &window) = 0;

    // Only rect (logical pixels, window coordinates) takes the pointer; everywhere else clicks reach
    // what lies below. When nothing composites transparency, the window is also cut to drawnRect so
    // that its transparent parts do not show black. Empty rectangles make the window click-through
    // and, without compositing, invisible.
    virtual void setShape(QWindow &window, const QRect &rect, const QRect &drawnRect) = 0;
};

} // namespace vaxo
