#include "platform/PlatformServices.h"

#include "platform/linux/CanberraSoundPlayer.h"
#include "platform/linux/InotifyFolderWatcher.h"
#include "platform/linux/X11PanelShell.h"

namespace vaxo {

FolderWatcher *PlatformServices::newFolderWatcher(QObject *parent)
{
    return new linux_platform::InotifyFolderWatcher(parent);
}

PlatformServices PlatformServices::make()
{
    PlatformServices services;
    services.sounds = std::make_unique<linux_platform::CanberraSoundPlayer>();
    services.panelShell = std::make_unique<linux_platform::X11PanelShell>();
    return services;
}

} // namespace vaxo
