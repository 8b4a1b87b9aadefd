#pragma once

#include "app/AppPaths.h"

#include <QByteArray>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QString>

namespace vaxo::test {

// What a finished script left: its exit code and both output streams.
struct ScriptResult {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

// Runs the installed hook (bash) or the reporter (python3) of the source tree the way Claude Code
// does: payload on standard input, the test's extra variables over a clean environment.
ScriptResult runHook(const AppPaths &paths, const QString &event, const QByteArray &payload,
                     const QProcessEnvironment &extra = {});
ScriptResult runReporter(const QByteArray &payload, const QProcessEnvironment &env);

// The reporter as it sits in the source tree.
QString sourceReporter();
// The environment the scripts start from: PATH and HOME only, and a short permission wait.
QProcessEnvironment scriptEnvironment(const QString &home);
// The session file of id, parsed (empty when missing or malformed).
QJsonObject readSession(const AppPaths &paths, const QString &id);

} // namespace vaxo::test
