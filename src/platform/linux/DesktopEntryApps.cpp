#include "platform/linux/DesktopEntryApps.h"

#include <QFile>
#include <QStandardPaths>

namespace vaxo::linux_platform {

QString DesktopEntryApps::iconOf(const QByteArray &entry)
{
    bool inMainGroup = false;
    for (const QByteArray &raw : entry.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.startsWith('['))
            inMainGroup = line == "[Desktop Entry]";
        else if (const qsizetype equals = line.indexOf('='); inMainGroup && line.left(equals).trimmed() == "Icon")
            return QString::fromUtf8(line.mid(equals + 1)).trimmed();
    }
    return {};
}

std::optional<QString> DesktopEntryApps::icon(const QString &id) const
{
    if (id.isEmpty() || id.contains(QLatin1Char('/')))
        return std::nullopt;
    QFile file(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, id + QStringLiteral(".desktop")));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QString icon = iconOf(file.read(64 * 1024));
    return icon.isEmpty() ? std::nullopt : std::optional(icon);
}

} // namespace vaxo::linux_platform
