#pragma once

#include <QObject>

namespace vaxo {

// The program's start-up object: runs the start-up steps in order and stops the session watching
// when the program terminates.
class IslandAppDelegate : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    void applicationDidFinishLaunching();
    void applicationWillTerminate();
};

} // namespace vaxo
