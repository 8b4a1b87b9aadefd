#include "island/CardText.h"

#include <QHash>
#include <QJsonObject>
#include <QStringList>

#include <cmath>

namespace vaxo::CardText {
namespace {

// A folder as the card shows it: its last name and a slash.
QString folderName(QString path)
{
    while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    const QString name = path.section(QLatin1Char('/'), -1);
    return name.isEmpty() ? QStringLiteral("/") : name + QLatin1Char('/');
}

// "npm test" for the rule "npm test:*" or "npm test *"; the tool's name for a rule without content.
QString ruleSubject(const QJsonObject &rule)
{
    QString content = rule.value(QLatin1String("ruleContent")).toString();
    for (const QLatin1String tail : {QLatin1String(":*"), QLatin1String(" *")}) {
        if (content.endsWith(tail))
            content.chop(tail.size());
    }
    return content.isEmpty() ? rule.value(QLatin1String("toolName")).toString() : content;
}

QString joined(const QStringList &words)
{
    if (words.size() < 2)
        return words.join(QString());
    return QStringList(words.mid(0, words.size() - 1)).join(QStringLiteral(", ")) + QStringLiteral(" and ") +
           words.last();
}

} // namespace

QString durationText(double since, double now)
{
    const double minutes = std::floor((now - since) / 60.0);
    if (!(minutes >= 1))
        return QStringLiteral("now");
    const auto m = qint64(minutes);
    if (m < 60)
        return QStringLiteral("%1m").arg(m);
    return QStringLiteral("%1h %2m").arg(m / 60).arg(m % 60);
}

QString moreRunning(int hidden)
{
    return hidden > 0 ? QStringLiteral("+%1 more running").arg(hidden) : QString();
}

QString moreWaiting(int others)
{
    return others > 0 ? QStringLiteral("+%1 more waiting on you").arg(others) : QString();
}

QString taskSummary(const AgentTasks &tasks)
{
    return QStringLiteral("%1 in progress \u00B7 %2 open").arg(tasks.inProgress).arg(tasks.open);
}

QString tasksCompleted(const AgentTasks &tasks)
{
    return QStringLiteral("%1 completed").arg(tasks.done);
}

ActionLine actionLine(const QString &lastAction)
{
    const qsizetype space = lastAction.indexOf(QLatin1Char(' '));
    if (space < 0)
        return {lastAction, {}};
    return {lastAction.left(space), lastAction.mid(space + 1)};
}

ActionLine stopFailure(const QString &kind)
{
    static const QHash<QString, QString> words{
        {QStringLiteral("authentication_failed"), QStringLiteral("sign-in failed")},
        {QStringLiteral("oauth_org_not_allowed"), QStringLiteral("organisation not allowed")},
        {QStringLiteral("account_on_hold"), QStringLiteral("account on hold")},
        {QStringLiteral("verification_required"), QStringLiteral("verification required")},
        {QStringLiteral("billing_error"), QStringLiteral("billing problem")},
        {QStringLiteral("rate_limit"), QStringLiteral("rate limit reached")},
        {QStringLiteral("overloaded"), QStringLiteral("API overloaded")},
        {QStringLiteral("invalid_request"), QStringLiteral("invalid request")},
        {QStringLiteral("model_not_found"), QStringLiteral("model not found")},
        {QStringLiteral("server_error"), QStringLiteral("API server error")},
        {QStringLiteral("max_output_tokens"), QStringLiteral("reply too long")},
        {QStringLiteral("cloud_credential_error"), QStringLiteral("cloud credentials refused")},
    };
    return {QStringLiteral("Stopped"), words.value(kind, QStringLiteral("API error"))};
}

QString alwaysAllow(const QJsonArray &suggestions)
{
    QStringList folders, commands, modes;
    for (const QJsonValue &value : suggestions) {
        const QJsonObject s = value.toObject();
        const QString type = s.value(QLatin1String("type")).toString();
        if (type == QLatin1String("addDirectories")) {
            for (const QJsonValue &dir : s.value(QLatin1String("directories")).toArray()) {
                if (!dir.toString().isEmpty())
                    folders << folderName(dir.toString());
            }
        } else if (type == QLatin1String("addRules") && s.value(QLatin1String("behavior")) == QLatin1String("allow")) {
            for (const QJsonValue &rule : s.value(QLatin1String("rules")).toArray())
                commands << ruleSubject(rule.toObject());
        } else if (type == QLatin1String("setMode")) {
            modes << s.value(QLatin1String("mode")).toString();
        }
    }
    commands.removeAll(QString());
    // As in the terminal, folders and commands come before a change of mode.
    if (!folders.isEmpty() && !commands.isEmpty())
        return QStringLiteral("Allow access to %1 and %2 commands").arg(joined(folders), joined(commands));
    if (!folders.isEmpty())
        return QStringLiteral("Always allow access to ") + joined(folders);
    if (!commands.isEmpty())
        return QStringLiteral("Don\u2019t ask again for %1 commands").arg(joined(commands));
    if (modes == QStringList{QStringLiteral("acceptEdits")})
        return QStringLiteral("Allow all edits this session");
    return QStringLiteral("Always allow");
}

QString waitedText(double seconds)
{
    return seconds >= 60 ? QStringLiteral("waiting ") + durationText(0, seconds) : QString();
}

QString needsPermission()
{
    return QStringLiteral("Needs your permission");
}

QString waitingApproval()
{
    return QStringLiteral("Waiting for your approval");
}

QString emptyState()
{
    return QStringLiteral("All quiet. Start something and I\u2019ll keep an eye on it.");
}

} // namespace vaxo::CardText
