#include "platform/PlatformServices.h"

#include "app/Clock.h"

#include "platform/ActivityPlatform.h"
#include "platform/linux/DesktopEntryApps.h"
#include "platform/linux/LinuxActivityPlatform.h"
#include "platform/linux/LinuxTerminalFocus.h"
#include "platform/linux/MachineModel.h"
#include "platform/linux/MprisMediaPlayers.h"
#include "platform/linux/QtArtDecoder.h"
#include "platform/linux/QtPasteboard.h"
#include "platform/linux/SpeechdSynthesizer.h"
#include "platform/linux/SystemLog.h"
#include "platform/linux/TerminationSignals.h"
#include "platform/linux/XdgAutostart.h"
#include "platform/linux/XdgMailDrafts.h"

#include "platform/linux/CanberraSoundPlayer.h"
#include "platform/linux/InotifyFolderWatcher.h"
#include "platform/linux/PidfdProcessWatcher.h"
#include "platform/linux/X11DesktopWindows.h"
#include "platform/linux/X11FrontmostApp.h"
#include "platform/linux/X11PanelShell.h"
#include "platform/linux/XInputPointerMonitor.h"
#include "platform/linux/XcbGlobalHotKey.h"

namespace vaxo {

FolderWatcher *PlatformServices::newFolderWatcher(QObject *parent)
{
    return new linux_platform::InotifyFolderWatcher(parent);
}

ProcessWatcher *PlatformServices::newProcessWatcher(QObject *parent)
{
    return new linux_platform::PidfdProcessWatcher(parent);
}

PlatformServices::PlatformServices() = default;
PlatformServices::PlatformServices(PlatformServices &&) noexcept = default;
PlatformServices::~PlatformServices() = default;

QString PlatformServices::hardwareModel()
{
    return linux_platform::machineModel();
}

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
    services.hotKey = std::make_unique<linux_platform::XcbGlobalHotKey>();
    services.speech = std::make_unique<linux_platform::SpeechdSynthesizer>();
    services.terminalFocus = std::make_unique<linux_platform::LinuxTerminalFocus>();
    services.installedApps = std::make_unique<linux_platform::DesktopEntryApps>();
    services.loginRegistration =
        std::make_unique<linux_platform::XdgAutostart>(linux_platform::XdgAutostart::standard());
    services.mailDrafts = std::make_unique<linux_platform::XdgMailDrafts>();
    services.artDecoder = std::make_unique<linux_platform::QtArtDecoder>();
    return services;
}

} // namespace vaxo
