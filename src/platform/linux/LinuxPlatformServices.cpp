#include "platform/PlatformServices.h"

#include "platform/ActivityPlatform.h"
#include "platform/ArtDecoder.h"
#include "platform/DesktopWindows.h"
#include "platform/FrontmostApp.h"
#include "platform/GlobalHotKey.h"
#include "platform/InstalledApps.h"
#include "platform/LoginRegistration.h"
#include "platform/MailDrafts.h"
#include "platform/MediaPlayers.h"
#include "platform/PanelShell.h"
#include "platform/Pasteboard.h"
#include "platform/PointerMonitor.h"
#include "platform/SoundPlayer.h"
#include "platform/SpeechSynthesizer.h"
#include "platform/TerminalFocus.h"
#include "platform/linux/InotifyFolderWatcher.h"
#include "platform/linux/MachineModel.h"
#include "platform/linux/PidfdProcessWatcher.h"
#include "platform/linux/SystemLog.h"

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

} // namespace vaxo
