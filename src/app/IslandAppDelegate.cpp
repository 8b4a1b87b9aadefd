#include "app/IslandAppDelegate.h"

#include "agents/LocalHookSource.h"
#include "app/Clock.h"
#include "island/IslandController.h"
#include "island/IslandState.h"
#include "platform/PanelShell.h"
#include "platform/SoundPlayer.h"

#include <QSettings>

namespace vaxo {

IslandAppDelegate::IslandAppDelegate(AppPaths paths, QObject *parent)
    : QObject(parent), m_paths(std::move(paths)), m_platform(PlatformServices::make()),
      m_settings(std::make_unique<QSettings>(m_paths.settingsFile(), QSettings::IniFormat))
{
    auto source = std::make_unique<LocalHookSource>(m_paths.sessions(), Clock::system(),
                                                    PlatformServices::newFolderWatcher());
    m_state = std::make_unique<IslandState>(std::move(source), Clock::system(), *m_settings, *m_platform.sounds);
    m_controller = std::make_unique<IslandController>(*m_state, *m_platform.panelShell, *m_settings);
}

IslandAppDelegate::~IslandAppDelegate() = default;

void IslandAppDelegate::applicationDidFinishLaunching()
{
    // 1. No taskbar, pager or switcher entry and no focus: the island's window flags and window
    //    states (PanelShell::prepare) do what an accessory application does elsewhere.
    // 4. The island, which starts the session watching when it first shows.
    m_controller->start();
}

void IslandAppDelegate::applicationWillTerminate()
{
    m_state->stopWatching();
}

} // namespace vaxo
