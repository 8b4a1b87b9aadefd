#pragma once

#include <QList>
#include <QObject>

namespace vaxo {

// The program's own top-level windows, as far as deciding whether the user can see one of them.
class WindowVisibilitySource : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    struct Window {
        bool visible = false;
        bool minimised = false;
        bool normalLevel = false; // an ordinary window, not a panel kept above the others
        bool unoccluded = false;  // at least partly uncovered, as far as the platform tells
        double width = 0;         // in device-independent pixels
        double height = 0;
    };

    // Every top-level window of the program; empty when it has none or the platform cannot list them.
    virtual QList<Window> windows() const = 0;

signals:
    // A window was shown, hidden, closed, minimised, restored, activated or uncovered.
    void windowsChanged();
};

} // namespace vaxo
