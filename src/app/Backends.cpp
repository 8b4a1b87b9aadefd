#include "app/Backends.h"

#include "base/Clock.h"

#include "platform/ActivityPlatform.h"
#include "platform/linux/CanberraSoundPlayer.h"
#include "platform/linux/DesktopEntryApps.h"
#include "platform/linux/LinuxActivityPlatform.h"
#include "platform/linux/LinuxTerminalFocus.h"
#include "platform/linux/MprisMediaPlayers.h"
#include "platform/linux/QtArtDecoder.h"
#include "platform/linux/QtPasteboard.h"
#include "platform/linux/SpeechdSynthesizer.h"
#include "platform/linux/TerminationSignals.h"
#include "platform/linux/XdgAutostart.h"
#include "platform/linux/XdgMailDrafts.h"
#include "platform/x11/X11DesktopWindows.h"
#include "platform/x11/X11FrontmostApp.h"
#include "platform/x11/X11PanelShell.h"
#include "platform/x11/X11WindowActivation.h"
#include "platform/x11/XInputPointerMonitor.h"
#include "platform/x11/XScreenSaverIdleTime.h"
#include "platform/x11/XcbGlobalHotKey.h"

#include <QDBusConnection>

namespace vaxo::Backends {
namespace {

// What every Linux desktop shares: the buses, /proc, the sound theme, speech, XDG.
void addLinuxServices(PlatformServices &services)
{
    services.sounds = std::make_unique<linux_platform::CanberraSoundPlayer>();
    services.pasteboard = std::make_unique<linux_platform::QtPasteboard>();
    services.media =
        std::make_unique<linux_platform::MprisMediaPlayers>(QDBusConnection::sessionBus(), Clock::system());
    services.speech = std::make_unique<linux_platform::SpeechdSynthesizer>();
    services.installedApps = std::make_unique<linux_platform::DesktopEntryApps>();
    services.loginRegistration =
        std::make_unique<linux_platform::XdgAutostart>(linux_platform::XdgAutostart::standard());
    services.mailDrafts = std::make_unique<linux_platform::XdgMailDrafts>();
    services.artDecoder = std::make_unique<linux_platform::QtArtDecoder>();
}

void addX11Services(PlatformServices &services)
{
    services.activity = std::make_unique<linux_platform::LinuxActivityPlatform>(
        [](QObject *parent) -> IdleTimeSource * { return new linux_platform::XScreenSaverIdleTime(parent); });
    services.panelShell = std::make_unique<linux_platform::X11PanelShell>();
    services.pointer = std::make_unique<linux_platform::XInputPointerMonitor>();
    services.desktopWindows = std::make_unique<linux_platform::X11DesktopWindows>();
    services.frontmost = std::make_unique<linux_platform::X11FrontmostApp>();
    services.hotKey = std::make_unique<linux_platform::XcbGlobalHotKey>();
    services.terminalFocus =
        std::make_unique<linux_platform::LinuxTerminalFocus>(&linux_platform::X11WindowActivation::activateWindowOf);
}

} // namespace

PlatformServices make()
{
    linux_platform::quitOnTerminationSignals();
    PlatformServices services;
    addLinuxServices(services);
    addX11Services(services);
    return services;
}

} // namespace vaxo::Backends
