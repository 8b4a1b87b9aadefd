#include "island/IslandWindow.h"

#include "island/IslandRoot.h"
#include "island/QmlTypes.h"
#include "platform/PanelShell.h"

#include <QQmlEngine>
#include <QQuickView>

namespace vaxo::IslandWindow {

std::unique_ptr<QQuickView> create(PanelShell &shell, const QString &title, const QString &view, IslandRoot *root,
                                   const QVariantMap &properties)
{
    qml::registerTypes();
    auto window = std::make_unique<QQuickView>();
    shell.prepare(*window);
    window->setColor(Qt::transparent);
    window->setTitle(title);
    window->setResizeMode(QQuickView::SizeRootObjectToView);
    root->setParent(window.get());
    root->installImageProviders(*window->engine());
    window->engine()->addImportPath(QStringLiteral("qrc:/qt/qml")); // where the views' module lives
    QVariantMap initial = properties;
    initial.insert(QStringLiteral("root"), QVariant::fromValue(root));
    window->setInitialProperties(initial);
    window->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Vaxo/Island/") + view));
    return window;
}

} // namespace vaxo::IslandWindow
