#pragma once

#include "app/AppPaths.h"
#include "platform/PlatformServices.h"

#include <QObject>

#include <memory>

class QSettings;

namespace vaxo {

class IslandClipboard;
class IslandController;
class IslandState;

// The program's start-up object and composition root: makes the long-lived objects, runs the
// start-up steps in order, and stops the session watching when the program terminates.
class IslandAppDelegate : public QObject {
    Q_OBJECT
public:
    explicit IslandAppDelegate(AppPaths paths, QObject *parent = nullptr);
    ~IslandAppDelegate() override;

    void applicationDidFinishLaunching();
    void applicationWillTerminate();

    IslandState &state() const { return *m_state; }
    IslandController &controller() const { return *m_controller; }

private:
    AppPaths m_paths;
    PlatformServices m_platform;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<IslandState> m_state;
    std::unique_ptr<IslandClipboard> m_clipboard;
    std::unique_ptr<IslandController> m_controller;
};

} // namespace vaxo
