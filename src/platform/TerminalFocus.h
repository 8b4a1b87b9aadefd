#pragma once

class QString;

namespace vaxo {

// Brings the terminal that draws a tty ("/dev/pts/4") to the front and selects the tab or pane on it.
// An empty tty finds nothing. Called on the main thread; returns at once: the work runs on a
// background thread, one request after another, and its failures are ignored.
class TerminalFocus {
public:
    virtual ~TerminalFocus() = default;
    virtual void focus(const QString &tty) = 0;
};

} // namespace vaxo
