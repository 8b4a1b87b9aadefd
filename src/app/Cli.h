#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace vaxo {

// The two command-line questions the program answers before it starts: help and version.
struct CliFiles {
    QString sessions; // shown in the FILES section, as the user would type it
    QString face;
};

class Cli {
public:
    // arguments exclude the program path. Returns the text to print (without the final newline),
    // or nothing when the program is to start.
    static std::optional<QString> response(const QStringList &arguments, const std::optional<QString> &version,
                                           const CliFiles &files);
    static QString usage(const std::optional<QString> &version, const CliFiles &files);
    static QString versionLine(const std::optional<QString> &version);

    // A path under the home folder written with "~", as the help text shows it.
    static QString tildePath(const QString &path, const QString &home);
};

} // namespace vaxo
