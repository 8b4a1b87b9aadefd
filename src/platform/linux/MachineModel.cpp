#include "platform/linux/MachineModel.h"

#include <QFile>

namespace vaxo::linux_platform {
namespace {

QString firstLine(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // The device tree ends its strings with a NUL.
    const QString text = QString::fromUtf8(file.read(256));
    return text.section(QLatin1Char('\0'), 0, 0).section(QLatin1Char('\n'), 0, 0).trimmed();
}

} // namespace

QString machineModel(const QString &productName, const QString &deviceTreeModel)
{
    for (const QString &path : {productName, deviceTreeModel})
        if (const QString model = firstLine(path); !model.isEmpty())
            return model;
    return QStringLiteral("unknown");
}

} // namespace vaxo::linux_platform
