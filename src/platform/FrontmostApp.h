#pragma once

#include <QString>

#include <optional>

namespace vaxo {

// The application the user works in: the one that owns the focused (active) window.
struct AppIdentity {
    QString identifier; // bundle identifier, or the window's class on X11 ("KeePassXC")
    QString instance;   // the window's instance name on X11 ("keepassxc"), empty elsewhere
    QString process;    // the executable's name, empty when unknown
    QString name;       // the name people know it by, shown as a clip's source

    bool operator==(const AppIdentity &) const = default;
};

// Asks the window system for the frontmost application. Main thread only.
class FrontmostApp {
public:
    virtual ~FrontmostApp() = default;
    // Absent when no window is active or there is no window manager to say which one is.
    virtual std::optional<AppIdentity> current() const = 0;
};

} // namespace vaxo
