#include "ScriptRun.h"

#include <QFile>
#include <QJsonDocument>
#include <QProcess>

namespace vaxo::test {
namespace {

ScriptResult run(const QString &program, const QStringList &args, const QByteArray &payload,
                 const QProcessEnvironment &env)
{
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(program, args);
    process.write(payload);
    process.closeWriteChannel();
    ScriptResult result;
    if (!process.waitForFinished(120'000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

} // namespace

QString sourceReporter()
{
    return qEnvironmentVariable("VAXO_SOURCE_DIR") + QStringLiteral("/src/agents/scripts/island-report.py");
}

QProcessEnvironment scriptEnvironment(const QString &home)
{
    QProcessEnvironment env;
    env.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
    env.insert(QStringLiteral("HOME"), home);
    env.insert(QStringLiteral("VAXO_ASK_TIMEOUT"), QStringLiteral("0"));
    return env;
}

ScriptResult runHook(const AppPaths &paths, const QString &event, const QByteArray &payload,
                     const QProcessEnvironment &extra)
{
    QProcessEnvironment env = scriptEnvironment(paths.support);
    env.insert(extra);
    return run(QStringLiteral("/bin/bash"), {paths.hookScript(), event}, payload, env);
}

ScriptResult runReporter(const QByteArray &payload, const QProcessEnvironment &env)
{
    return run(QStringLiteral("/usr/bin/python3"), {QStringLiteral("-I"), QStringLiteral("-S"), sourceReporter()},
               payload, env);
}

QJsonObject readSession(const AppPaths &paths, const QString &id)
{
    QFile file(paths.sessions() + QLatin1Char('/') + id + QStringLiteral(".json"));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

} // namespace vaxo::test
