#pragma once

#include <QObject>

namespace vaxo {

// Tells when nobody can see the display any more (the screens sleep, the machine is about to sleep,
// the session is locked) and when it can be seen again. A platform, bus or service that does not
// report one of these simply never emits it.
class DisplayStateSource : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // Nobody can see the display now (the session is locked, the screen saver runs), as far as the
    // platform can tell; false when it cannot.
    virtual bool isLost() const { return false; }

signals:
    // The screens went to sleep, the machine will sleep, or the screen was locked.
    void displayLost();
    // The screens woke, the machine woke, or the screen was unlocked. May repeat.
    void displayBack();
};

} // namespace vaxo
