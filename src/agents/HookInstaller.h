#pragma once

#include "base/AppPaths.h"

#include <QString>
#include <QStringList>

namespace vaxo {

class Clock;

// Puts the island's hook in place for Claude Code: writes the hook script and the reporter into the
// support folder and registers the hook for seven events in ~/.claude/settings.json. Every failure is
// skipped silently (a failure to report must never disturb Claude Code), logged at most.
class HookInstaller {
public:
    // home: the folder that holds ".claude" (the user's home folder in the program).
    HookInstaller(const AppPaths &paths, const QString &home, const Clock &clock);

    // The hooked events, in the order their entries are added.
    static const QStringList &events();

    // Writes both scripts, then registers the hook when ~/.claude exists.
    void installIfNeeded() const;
    // Writes the hook script (0755) with this installation's folders filled in, then the reporter.
    void writeScript() const;
    void writeReporter() const;
    // Adds the missing hook entries to the settings, keeping every other byte of the file. Leaves
    // the file untouched when all seven are there, and when it is not a JSON object (logged).
    // A link to the settings stays a link. Returns whether it wrote the file.
    bool mergeSettings() const;
    // The settings text with the missing entries added, or empty when none is missing.
    QByteArray withHooks(const QByteArray &settings) const;

    QString claudeFolder() const { return m_home + QStringLiteral("/.claude"); }
    QString settingsFile() const { return claudeFolder() + QStringLiteral("/settings.json"); }
    // The command registered for event: the hook path in double quotes, a space and the event.
    QString hookCommand(const QString &event) const;
    // The hook script as written: the fixed text with the folders put in.
    QString hookScriptText() const;

private:
    AppPaths m_paths;
    QString m_home;
    const Clock &m_clock;
};

} // namespace vaxo
