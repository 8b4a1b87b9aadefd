#pragma once

#include <QString>

#include <optional>

namespace vaxo {

// The applications installed for the user, found by identifier (a bundle identifier, or on Linux the
// name of a desktop entry). Any thread.
class InstalledApps {
public:
    virtual ~InstalledApps() = default;
    // The application's icon as a file path or an icon-theme name; absent when the application is not
    // installed or names no icon.
    virtual std::optional<QString> icon(const QString &id) const = 0;
};

} // namespace vaxo
