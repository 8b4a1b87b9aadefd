#pragma once

#include <QObject>

namespace vaxo {

// Pointer events anywhere on the desktop, over other programs' windows too: the island closes its card
// on a click elsewhere, and follows the pointer while a full-screen window hides it. Watching costs
// nothing while both kinds are off. A platform that cannot watch reports nothing.
class PointerMonitor : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // Which events to report from now on.
    virtual void watch(bool presses, bool motion) = 0;

signals:
    // A mouse button went down somewhere.
    void pressed();
    // The pointer moved; read its position from the window system.
    void moved();
};

} // namespace vaxo
