#include "platform/linux/XdgAutostart.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace vaxo::linux_platform {
namespace {

// An Exec argument in double quotes, with the characters that are special inside them escaped, and
// "%" doubled as the field codes want.
QString quotedArgument(const QString &argument)
{
    static const QString plain = QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+");
    if (std::all_of(argument.begin(), argument.end(), [](QChar c) { return plain.contains(c); }))
        return argument;
    QString quoted;
    for (QChar c : argument) {
        if (c == QLatin1Char('"') || c == QLatin1Char('`') || c == QLatin1Char('$') || c == QLatin1Char('\\'))
            quoted += QLatin1Char('\\');
        quoted += c;
        if (c == QLatin1Char('%'))
            quoted += c;
    }
    // The entry's own escaping of backslashes comes on top of the quoting.
    quoted.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

} // namespace

XdgAutostart::XdgAutostart(QString folder, QString program) : m_folder(std::move(folder)), m_program(std::move(program))
{
}

XdgAutostart XdgAutostart::standard()
{
    return XdgAutostart(QStandardPaths::writableLocation(QStandardPaths::ConfigLocation) + QStringLiteral("/autostart"),
                        QCoreApplication::applicationFilePath());
}

QString XdgAutostart::entryPath() const
{
    return m_folder + QStringLiteral("/vaxo-island.desktop");
}

QByteArray XdgAutostart::entry(const QString &program)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=VAXO Island\n"
           "Comment=Your coding agents, in the notch\n"
           "Exec=" +
           quotedArgument(program).toUtf8() +
           "\n"
           "Icon=vaxo-island\n"
           "Terminal=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

bool XdgAutostart::enabled() const
{
    QFile file(entryPath());
    if (!file.open(QIODevice::ReadOnly))
        return false;
    // An entry marked hidden counts as removed.
    while (!file.atEnd())
        if (file.readLine().trimmed() == "Hidden=true")
            return false;
    return true;
}

std::optional<QString> XdgAutostart::enable()
{
    if (!QDir().mkpath(m_folder))
        return QStringLiteral("cannot create %1").arg(m_folder);
    QSaveFile file(entryPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(entry(m_program)) < 0 || !file.commit())
        return QStringLiteral("cannot write %1: %2").arg(entryPath(), file.errorString());
    return std::nullopt;
}

std::optional<QString> XdgAutostart::disable()
{
    QFile file(entryPath());
    if (file.exists() && !file.remove())
        return QStringLiteral("cannot remove %1: %2").arg(entryPath(), file.errorString());
    return std::nullopt;
}

} // namespace vaxo::linux_platform
