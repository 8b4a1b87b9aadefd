#include "agents/HookInstaller.h"

#include "app/Clock.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>

namespace vaxo {
namespace {

QString resourceText(const QString &name)
{
    QFile file(QStringLiteral(":/agents/scripts/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The text of a double-quoted shell word holding path.
QString shellQuotedBody(QString path)
{
    for (const QChar c : {QLatin1Char('\\'), QLatin1Char('"'), QLatin1Char('$'), QLatin1Char('`')})
        path.replace(c, QStringLiteral("\\") + c);
    return path;
}

bool writeAtomically(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

bool hasCommandContaining(const QJsonArray &entries, const QString &needle)
{
    for (const QJsonValue &entry : entries) {
        for (const QJsonValue &hook : entry.toObject().value(QStringLiteral("hooks")).toArray()) {
            if (hook.toObject().value(QStringLiteral("command")).toString().contains(needle))
                return true;
        }
    }
    return false;
}

bool isArrayOfObjects(const QJsonValue &value)
{
    if (!value.isArray())
        return false;
    const QJsonArray array = value.toArray();
    return std::all_of(array.begin(), array.end(), [](const QJsonValue &v) { return v.isObject(); });
}

} // namespace

HookInstaller::HookInstaller(const AppPaths &paths, const QString &home, const Clock &clock)
    : m_paths(paths), m_home(home), m_clock(clock)
{
}

const QStringList &HookInstaller::events()
{
    static const QStringList names{QStringLiteral("UserPromptSubmit"), QStringLiteral("Stop"),
                                   QStringLiteral("Notification"),     QStringLiteral("PermissionRequest"),
                                   QStringLiteral("SessionEnd"),       QStringLiteral("PostToolUse")};
    return names;
}

void HookInstaller::installIfNeeded() const
{
    writeScript();
    if (!QFileInfo(claudeFolder()).isDir()) {
        qInfo().noquote() << QStringLiteral(
            "[island] no ~/.claude \u2014 skipping hook install until Claude Code is set up");
        return;
    }
    mergeSettings();
}

QString HookInstaller::hookScriptText() const
{
    return resourceText(QStringLiteral("island-hook.sh"))
        .replace(QStringLiteral("@SESSIONS_DIR@"), shellQuotedBody(m_paths.sessions()))
        .replace(QStringLiteral("@SUPPORT_DIR@"), shellQuotedBody(m_paths.support));
}

void HookInstaller::writeScript() const
{
    QDir().mkpath(m_paths.support);
    const QString path = m_paths.hookScript();
    writeAtomically(path, hookScriptText().toUtf8());
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner |
                                    QFileDevice::ReadGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                    QFileDevice::ExeOther);
    writeReporter();
}

void HookInstaller::writeReporter() const
{
    writeAtomically(m_paths.reporterScript(), resourceText(QStringLiteral("island-report.py")).toUtf8());
}

QString HookInstaller::hookCommand(const QString &event) const
{
    return QLatin1Char('"') + m_paths.hookScript() + QStringLiteral("\" ") + event;
}

bool HookInstaller::mergeSettings() const
{
    const QString path = settingsFile();
    QFile file(path);
    const bool exists = file.exists();
    QJsonObject root;
    if (file.open(QIODevice::ReadOnly))
        root = QJsonDocument::fromJson(file.readAll()).object();
    file.close();

    QJsonObject hooks = root.value(QStringLiteral("hooks")).toObject();
    bool changed = false;
    for (const QString &event : events()) {
        const QJsonValue current = hooks.value(event);
        QJsonArray entries = isArrayOfObjects(current) ? current.toArray() : QJsonArray();
        if (hasCommandContaining(entries, m_paths.hookScript()))
            continue;
        const QJsonObject hook{{QStringLiteral("type"), QStringLiteral("command")},
                               {QStringLiteral("command"), hookCommand(event)}};
        entries.append(QJsonObject{{QStringLiteral("hooks"), QJsonArray{hook}}});
        hooks.insert(event, entries);
        changed = true;
    }
    if (!changed)
        return false;

    if (exists) {
        const QString day = QDateTime::fromMSecsSinceEpoch(qint64(m_clock.now() * 1000.0), Qt::UTC)
                                .toString(QStringLiteral("yyyy-MM-dd"));
        const QString backup = claudeFolder() + QStringLiteral("/settings.json.bak-vaxo-island-") + day;
        if (!QFileInfo::exists(backup))
            QFile::copy(path, backup);
    }
    root.insert(QStringLiteral("hooks"), hooks);
    // QJsonObject keeps its keys sorted, so the document comes out with sorted keys.
    if (!writeAtomically(path, QJsonDocument(root).toJson(QJsonDocument::Indented)))
        return false;
    qInfo().noquote() << QStringLiteral("[island] Claude Code hooks installed");
    return true;
}

} // namespace vaxo
