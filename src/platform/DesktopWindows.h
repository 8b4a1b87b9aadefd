#pragma once

#include <QList>
#include <QObject>
#include <QRect>

namespace vaxo {

// Another program's window as the window manager shows it.
struct DesktopWindow {
    QRect bounds;            // in device-independent pixels, on the whole desktop
    bool fullscreen = false; // the window manager shows it full screen

    bool operator==(const DesktopWindow &) const = default;
};

// The windows the window manager manages, for telling whether a full-screen window covers a display.
// Desktop backgrounds and docks (panels) are left out; this program's own windows never count.
class DesktopWindows : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // Bottom to top; empty without a window manager or when the list cannot be read.
    virtual QList<DesktopWindow> windows() const = 0;

signals:
    // The active window or the stacking order changed.
    void changed();
};

} // namespace vaxo
