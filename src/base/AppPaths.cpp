#include "base/AppPaths.h"

#include <QStandardPaths>

namespace vaxo {
namespace {
const QString kFolder = QStringLiteral("/VAXO Island");
}

AppPaths AppPaths::standard()
{
    return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + kFolder,
            QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + kFolder,
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + kFolder};
}

AppPaths AppPaths::under(const QString &root)
{
    return {root + QStringLiteral("/data") + kFolder, root + QStringLiteral("/cache") + kFolder,
            root + QStringLiteral("/config") + kFolder};
}

} // namespace vaxo
