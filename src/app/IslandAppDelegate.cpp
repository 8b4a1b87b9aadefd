#include "app/IslandAppDelegate.h"

#include "agents/AskDecision.h"
#include "agents/HookInstaller.h"
#include "agents/LocalHookSource.h"
#include "app/Clock.h"
#include "app/IslandScheduler.h"
#include "clipboard/IslandClipboard.h"
#include "island/IslandController.h"
#include "island/IslandState.h"
#include "platform/PanelShell.h"
#include "platform/SoundPlayer.h"

#include <QDir>
#include <QSettings>

namespace vaxo {

IslandAppDelegate::IslandAppDelegate(AppPaths paths, QObject *parent)
    : QObject(parent), m_paths(std::move(paths)), m_platform(PlatformServices::make()),
      m_settings(std::make_unique<QSettings>(m_paths.settingsFile(), QSettings::IniFormat))
{
    auto source =
        std::make_unique<LocalHookSource>(m_paths.sessions(), Clock::system(), PlatformServices::newFolderWatcher());
    m_state = std::make_unique<IslandState>(std::move(source), Clock::system(), *m_settings, *m_platform.sounds);
    m_clipboard = std::make_unique<IslandClipboard>(*m_platform.pasteboard, *m_platform.frontmost,
                                                    IslandScheduler::shared(), *m_settings, m_paths, Clock::system());
    m_controller = std::make_unique<IslandController>(*m_state, *m_clipboard, *m_platform.panelShell, *m_settings);
}

IslandAppDelegate::~IslandAppDelegate() = default;

void IslandAppDelegate::applicationDidFinishLaunching()
{
    // 1. No taskbar, pager or switcher entry and no focus: the island's window flags and window
    //    states (PanelShell::prepare) do what an accessory application does elsewhere.
    // 2. The hook scripts are written at every start; registered only where Claude Code is set up.
    HookInstaller(m_paths, QDir::homePath(), Clock::system()).installIfNeeded();
    // 3. Decisions that no reporter picked up in time are removed.
    AskDecision(m_paths.decisions(), Clock::system()).sweep();
    // 4. The island, which starts the session watching when it first shows.
    m_controller->start();
}

void IslandAppDelegate::applicationWillTerminate()
{
    m_state->stopWatching();
}

} // namespace vaxo
