#pragma once

#include <QObject>

namespace vaxo {

// Seconds since the last input event of any kind (keyboard, pointer, scroll) in the user's session.
// Asked for on demand; nothing is signalled.
class IdleTimeSource : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // 0 when the idle time cannot be read (no display, no extension): a missing source never makes
    // the user look idle.
    virtual double idleSeconds() = 0;
};

} // namespace vaxo
