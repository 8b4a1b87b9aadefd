#include "agents/HookInstaller.h"

#include "agents/SettingsText.h"
#include "base/Clock.h"

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
                                   QStringLiteral("SessionEnd"),       QStringLiteral("PostToolUse"),
                                   QStringLiteral("StopFailure")};
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
    // A settings file that is a link stays one: the merged text goes to the file it points to.
    const QFileInfo info(settingsFile());
    const QString path = !info.isSymLink() ? info.filePath()
                         : info.exists()   ? info.canonicalFilePath()
                                           : info.symLinkTarget();
    QFile file(path);
    const bool exists = file.exists();
    QByteArray original;
    QJsonParseError error{};
    if (exists) {
        if (file.open(QIODevice::ReadOnly))
            original = file.readAll();
        const QJsonDocument document = QJsonDocument::fromJson(original, &error);
        if (error.error != QJsonParseError::NoError || !document.isObject()) {
            // Perhaps half-way through an edit: theirs to finish; the next start tries again.
            qInfo().noquote() << QStringLiteral(
                "[island] ~/.claude/settings.json is not a JSON object \u2014 hooks not installed");
            return false;
        }
    }
    const QByteArray merged = withHooks(exists ? original : QByteArrayLiteral("{}"));
    if (merged.isEmpty())
        return false;

    if (exists) {
        const QString day = QDateTime::fromMSecsSinceEpoch(qint64(m_clock.now() * 1000.0), Qt::UTC)
                                .toString(QStringLiteral("yyyy-MM-dd"));
        const QString backup = claudeFolder() + QStringLiteral("/settings.json.bak-vaxo-island-") + day;
        if (!QFileInfo::exists(backup))
            QFile::copy(path, backup);
    }
    // A new file is all ours: written pretty-printed, with sorted keys.
    const QByteArray text = exists ? merged : QJsonDocument::fromJson(merged).toJson(QJsonDocument::Indented);
    if (!writeAtomically(path, text))
        return false;
    qInfo().noquote() << QStringLiteral("[island] Claude Code hooks installed");
    return true;
}

QByteArray HookInstaller::withHooks(const QByteArray &settings) const
{
    SettingsText text(settings);
    const QJsonObject hooks = QJsonDocument::fromJson(settings).object().value(QStringLiteral("hooks")).toObject();
    const SettingsText::Span old = text.member(text.root(), QStringLiteral("hooks"));
    if (old.opener(text.text()) != '{')
        old.found() ? text.replace(old, "{}") : text.appendMember(text.root(), QStringLiteral("hooks"), "{}");
    bool changed = false;
    for (const QString &event : events()) {
        const QJsonValue current = hooks.value(event);
        if (isArrayOfObjects(current) && hasCommandContaining(current.toArray(), m_paths.hookScript()))
            continue;
        const QJsonObject hook{{QStringLiteral("type"), QStringLiteral("command")},
                               {QStringLiteral("command"), hookCommand(event)}};
        const QByteArray entry =
            QJsonDocument(QJsonObject{{QStringLiteral("hooks"), QJsonArray{hook}}}).toJson(QJsonDocument::Compact);
        const SettingsText::Span object = text.member(text.root(), QStringLiteral("hooks"));
        const SettingsText::Span array = text.member(object, event);
        if (!array.found())
            text.appendMember(object, event, '[' + entry + ']');
        else if (isArrayOfObjects(current))
            text.appendElement(array, entry);
        else
            text.replace(array, '[' + entry + ']');
        changed = true;
    }
    // Whatever happened above, what is written must read back as settings with the hooks in.
    return changed && QJsonDocument::fromJson(text.text()).isObject() ? text.text() : QByteArray();
}

} // namespace vaxo
