#pragma once

#include <QString>

namespace vaxo {

// The short block that makes a problem report actionable: version, system, machine, whether media
// keys may be posted, and whether the user draws the character with artwork of their own.
struct Diagnostics {
    QString appVersion;   // "0.1.0 (build 7)"
    QString system;       // the operating system's name and version
    QString machine;      // the hardware model
    QString architecture; // the processor architecture ("x86_64")
    bool accessibility = true;
    int customFaceMoods = 0; // moods with artwork in the user's Face folder

    // The lines in their order, the labels padded to one column, separated by "\n".
    QString text() const;

    // "<version> (build <build>)", either one "?" when unknown.
    static QString versionText(const QString &version, const QString &build);
};

} // namespace vaxo
