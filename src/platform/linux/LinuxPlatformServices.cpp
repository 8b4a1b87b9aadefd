#include "platform/PlatformServices.h"

#include "app/Clock.h"

#include "platform/ActivityPlatform.h"
#include "platform/linux/LinuxActivityPlatform.h"
#include "platform/linux/MprisMediaPlayers.h"
#include "platform/linux/QtArtDecoder.h"
#include "platform/linux/QtPasteboard.h"
#include "platform/linux/SystemLog.h"
#include "platform/linux/TerminationSignals.h"

#include "platform/linux/CanberraSoundPlayer.h"
#include "platform/linux/InotifyFolderWatcher.h"
#include "platform/linux/X11DesktopWindows.h"
#include "platform/linux/X11FrontmostApp.h"
#include "platform/linux/X11PanelShell.h"
#include "platform/linux/XInputPointerMonitor.h"

namespace vaxo {

FolderWatcher *PlatformServices::newFolderWatcher(QObject *parent)
{
    return new linux_platform::InotifyFolderWatcher(parent);
}

PlatformServices::PlatformServices() = default;
PlatformServices::PlatformServices(PlatformServices &&) noexcept = default;
PlatformServices::~PlatformServices() = default;

void PlatformServices::installLogging()
{
    linux_platform::installSystemLog();
}

PlatformServices PlatformServices::make()
{
    linux_platform::quitOnTerminationSignals();
    PlatformServices services;
    services.activity = std::make_unique<linux_platform::LinuxActivityPlatform>();
    services.sounds = std::make_unique<linux_platform::CanberraSoundPlayer>();
    services.panelShell = std::make_unique<linux_platform::X11PanelShell>();
    services.pointer = std::make_unique<linux_platform::XInputPointerMonitor>();
    services.desktopWindows = std::make_unique<linux_platform::X11DesktopWindows>();
    services.pasteboard = std::make_unique<linux_platform::QtPasteboard>();
    services.frontmost = std::make_unique<linux_platform::X11FrontmostApp>();
    services.media =
        std::make_unique<linux_platform::MprisMediaPlayers>(QDBusConnection::sessionBus(), Clock::system());
    services.artDecoder = std::make_unique<linux_platform::QtArtDecoder>();
    return services;
}

} // namespace vaxo
