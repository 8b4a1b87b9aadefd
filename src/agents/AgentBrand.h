#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace vaxo {

class InstalledApps;

// Who made a session's agent, as the user recognises it: a name, a symbol, a colour and, where the
// maker's application is installed, its icon. Keyed by the session's exact "agent" text; a text that
// names no known agent is shown by its own words with the terminal symbol in soft white.
namespace AgentBrand {

// A colour in sRGB, each channel from 0 to 1.
struct Tint {
    double red = 1, green = 1, blue = 1, opacity = 1;
    // "#aarrggbb", as the views take colours.
    QString hex() const;
    bool operator==(const Tint &) const = default;
};

QString display(const QString &agent);
// The name of the symbol drawn for the agent ("sparkle", "terminal.fill", ...).
QString symbol(const QString &agent);
Tint tint(const QString &agent);
// The identifiers of the maker's applications, in the order they are looked for.
QStringList applicationIds(const QString &agent);
// The icon of the first of those applications that is installed: a file path or an icon-theme name;
// absent when none is.
std::optional<QString> appIcon(const QString &agent, const InstalledApps &apps);

} // namespace AgentBrand
} // namespace vaxo
