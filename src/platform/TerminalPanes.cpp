#include "platform/TerminalPanes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>

namespace vaxo::TerminalPanes {
namespace {

QList<QStringList> tabRows(const QByteArray &output)
{
    QList<QStringList> rows;
    for (const QByteArray &line : output.split('\n'))
        if (!line.trimmed().isEmpty())
            rows << QString::fromUtf8(line).trimmed().split(QLatin1Char('\t'));
    return rows;
}

} // namespace

std::optional<int> ptsNumber(const QString &tty)
{
    static const QString prefix = QStringLiteral("/dev/pts/");
    if (!tty.startsWith(prefix))
        return std::nullopt;
    bool ok = false;
    const int number = tty.mid(prefix.size()).toInt(&ok);
    return ok && number >= 0 ? std::optional(number) : std::nullopt;
}

std::optional<TmuxPane> tmuxPane(const QByteArray &listPanes, const QString &tty)
{
    for (const QStringList &row : tabRows(listPanes))
        if (row.size() == 3 && row.at(0) == tty)
            return TmuxPane{row.at(1), row.at(2)};
    return std::nullopt;
}

QStringList tmuxClientTtys(const QByteArray &listClients, const QString &session)
{
    QStringList ttys;
    for (const QStringList &row : tabRows(listClients))
        if (row.size() == 2 && (session.isEmpty() || row.at(1) == session))
            ttys << row.at(0);
    return ttys;
}

std::optional<QString> weztermPane(const QByteArray &json, const QString &tty)
{
    const QJsonArray panes = QJsonDocument::fromJson(json).array();
    for (const QJsonValue &value : panes) {
        const QJsonObject pane = value.toObject();
        const QJsonValue id = pane.value(QLatin1String("pane_id"));
        if (pane.value(QLatin1String("tty_name")).toString() == tty && id.isDouble())
            return QString::number(id.toInteger());
    }
    return std::nullopt;
}

std::optional<QString> environValue(const QByteArray &environ, const QString &name)
{
    const QByteArray key = name.toUtf8() + '=';
    for (const QByteArray &entry : environ.split('\0'))
        if (entry.startsWith(key))
            return QString::fromUtf8(entry.mid(key.size()));
    return std::nullopt;
}

QString tmuxSocket(const QString &tmuxVariable)
{
    // The socket path may itself hold commas; the server's pid and the session follow the last two.
    const QStringList parts = tmuxVariable.split(QLatin1Char(','));
    return parts.size() >= 3 ? parts.mid(0, parts.size() - 2).join(QLatin1Char(',')) : QString();
}

} // namespace vaxo::TerminalPanes
