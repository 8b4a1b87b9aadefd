#pragma once

#include "platform/InstalledApps.h"

namespace vaxo::linux_platform {

// Installed applications as desktop entries named after their identifier ("com.openai.codex.desktop")
// in the XDG applications folders, as application stores install them.
class DesktopEntryApps final : public InstalledApps {
public:
    std::optional<QString> icon(const QString &id) const override;

    // The Icon value of the [Desktop Entry] group of an entry's text, empty when it has none.
    static QString iconOf(const QByteArray &entry);
};

} // namespace vaxo::linux_platform
