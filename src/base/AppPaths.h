#pragma once

#include <QString>

namespace vaxo {

// Where the program keeps its files. Tests build one over a temporary folder; the program uses
// standard(), which follows the XDG base directories.
struct AppPaths {
    QString support; // "<data home>/VAXO Island"
    QString cache;   // "<cache home>/VAXO Island"
    QString config;  // "<config home>/VAXO Island"

    static AppPaths standard();
    // All three folders under one root, for tests and tools.
    static AppPaths under(const QString &root);

    QString sessions() const { return support + QStringLiteral("/sessions"); }
    QString decisions() const { return support + QStringLiteral("/decisions"); }
    QString face() const { return support + QStringLiteral("/Face"); }
    QString backgrounds() const { return support + QStringLiteral("/Backgrounds"); }
    QString logs() const { return support + QStringLiteral("/Logs"); }
    QString clipboardFile() const { return support + QStringLiteral("/clipboard.json"); }
    QString hookScript() const { return support + QStringLiteral("/island-hook.sh"); }
    QString reporterScript() const { return support + QStringLiteral("/island-report.py"); }
    QString faceFrames() const { return cache + QStringLiteral("/face-frames"); }
    QString settingsFile() const { return config + QStringLiteral("/settings.ini"); }
};

} // namespace vaxo
