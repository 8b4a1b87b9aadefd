#pragma once

#include <QString>
#include <QVariantMap>

#include <memory>

class QQuickView;

namespace vaxo {

class IslandRoot;
class PanelShell;

namespace IslandWindow {

// A window of the island's own: prepared by the shell (never focused, on every workspace, off the
// taskbar), see-through, its view sized to it, showing `view` of the views' module with `root` and the
// other initial properties. The root becomes the window's child.
std::unique_ptr<QQuickView> create(PanelShell &shell, const QString &title, const QString &view, IslandRoot *root,
                                   const QVariantMap &properties = {});

} // namespace IslandWindow
} // namespace vaxo
