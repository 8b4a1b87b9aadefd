#pragma once

#include <QString>

namespace vaxo::linux_platform {

// The hardware model from the firmware's product name, else the device tree's model (boards without
// firmware tables); "unknown" when neither can be read. The files are parameters for tests.
QString machineModel(const QString &productName = QStringLiteral("/sys/class/dmi/id/product_name"),
                     const QString &deviceTreeModel = QStringLiteral("/proc/device-tree/model"));

} // namespace vaxo::linux_platform
