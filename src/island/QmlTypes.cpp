#include "island/QmlTypes.h"

// Generated with the module's types. The module lives in a static library, where its registration
// does not run by itself.
void qml_register_types_Vaxo_Island();

namespace vaxo::qml {

void registerTypes()
{

    static const bool registered = [] {
        qml_register_types_Vaxo_Island();
        const char *uri = "Vaxo.Island";
        const QString reason = QStringLiteral("An enumeration");
        qmlRegisterUncreatableMetaObject(moods::staticMetaObject, uri, 1, 0, "Mood", reason);
        qmlRegisterUncreatableMetaObject(island_modes::staticMetaObject, uri, 1, 0, "IslandMode", reason);
        qmlRegisterUncreatableMetaObject(clip_kinds::staticMetaObject, uri, 1, 0, "ClipKind", reason);
        qmlRegisterUncreatableMetaObject(tiers::staticMetaObject, uri, 1, 0, "Tier", reason);
        qmlRegisterUncreatableMetaObject(status_icons::staticMetaObject, uri, 1, 0, "StatusIcon", reason);
        return true;
    }();
    Q_UNUSED(registered);
}

} // namespace vaxo::qml
