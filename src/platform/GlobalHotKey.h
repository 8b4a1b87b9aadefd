#pragma once

#include <QObject>
#include <QString>

namespace vaxo {

// One key combination taken for the whole desktop, whichever window has the keyboard focus.
class GlobalHotKey : public QObject {
    Q_OBJECT
public:
    // What a grab came to: status is the window system's error code (0 when the key is ours); problem
    // says why the combination cannot be taken at all on this keyboard (empty when it can).
    struct Grab {
        int status = 0;
        QString problem;
        bool taken() const { return status == 0 && problem.isEmpty(); }
    };

    using QObject::QObject;

    // Takes key with exactly these modifiers (Caps Lock and Num Lock make no difference), giving up an
    // earlier grab first. A combination another program holds is not taken, and nothing is reported
    // for it then.
    virtual Grab grab(Qt::Key key, Qt::KeyboardModifiers modifiers) = 0;
    // Gives the key back; safe when nothing is held.
    virtual void release() = 0;

signals:
    // The held combination was pressed: not its auto-repeat, nor any other key.
    void pressed();
    // The keyboard's layout or modifiers changed: a grab is due again, as its key may have moved.
    void keyboardChanged();
};

} // namespace vaxo
