#include "app/IslandAppDelegate.h"

#include "agents/AskDecision.h"
#include "agents/HookInstaller.h"
#include "agents/LocalHookSource.h"
#include "app/AppActivity.h"
#include "app/Clock.h"
#include "app/IslandScheduler.h"
#include "app/IslandSettings.h"
#include "clipboard/IslandClipboard.h"
#include "face/FaceAssets.h"
#include "face/MoodArt.h"
#include "island/IslandController.h"
#include "island/IslandLook.h"
#include "island/IslandState.h"
#include "island/SessionsSection.h"
#include "island/SettingsCard.h"
#include "media/IslandMedia.h"
#include "media/MusicSection.h"
#include "platform/ActivityPlatform.h"
#include "platform/DesktopWindows.h"
#include "platform/MediaPlayers.h"
#include "platform/PanelShell.h"
#include "platform/PointerMonitor.h"
#include "platform/SoundPlayer.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>

namespace vaxo {

IslandAppDelegate::IslandAppDelegate(AppPaths paths, QObject *parent)
    : QObject(parent), m_paths(std::move(paths)), m_platform(PlatformServices::make()),
      m_settings(std::make_unique<IslandSettings>(m_paths.settingsFile()))
{
    Clock &clock = Clock::system();
    ActivityPlatform &activity = *m_platform.activity;
    m_activity = std::make_unique<AppActivity>(AppActivity::Sources{activity.createDisplayStateSource(nullptr),
                                                                    activity.createLowPowerSource(nullptr),
                                                                    activity.createWindowVisibilitySource(nullptr)},
                                               AppActivity::Switches::fromEnvironment());
    m_scheduler = std::make_unique<IslandScheduler>(clock, *m_activity, activity.createIdleTimeSource(nullptr));
    m_decisions = std::make_unique<AskDecision>(m_paths.decisions(), clock);

    auto source = std::make_unique<LocalHookSource>(m_paths.sessions(), clock, PlatformServices::newFolderWatcher());
    m_state = std::make_unique<IslandState>(std::move(source), clock, *m_settings, *m_platform.sounds);
    m_media = std::make_unique<IslandMedia>(*m_platform.media, *m_scheduler, *m_settings, m_paths, clock,
                                            IslandMedia::Switches::fromEnvironment());
    m_music = std::make_unique<MusicSection>(*m_media, *m_activity, clock);
    m_clipboard = std::make_unique<IslandClipboard>(*m_platform.pasteboard, *m_platform.frontmost, *m_scheduler,
                                                    *m_settings, m_paths, clock);
    m_sessions = std::make_unique<SessionsSection>(*m_state, *m_decisions, clock);
    m_look = std::make_unique<IslandLook>(*m_settings, *m_state);
    m_settingsCard = std::make_unique<SettingsCard>(m_paths.backgrounds());
    // Built-in artwork would sit beside the program, in "share/vaxo-island/Face"; none is installed, so
    // the drawn face is the built-in art.
    const QString bundled = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/vaxo-island/Face");
    m_face = std::make_unique<FaceAssets>(FaceAssets::Folders{m_paths.face(), bundled, m_paths.faceFrames()}, clock,
                                          PlatformServices::newFolderWatcher(), *m_platform.artDecoder);
    m_face->load();
    m_face->watch();
    m_moodArt = std::make_unique<MoodArt>(*m_face, *m_state);

    const IslandRoot::Parts parts{m_state.get(),     m_settings.get(),     m_sessions.get(),
                                  m_clipboard.get(), m_music.get(),        m_activity.get(),
                                  m_look.get(),      m_settingsCard.get(), m_paths.backgrounds(),
                                  m_moodArt.get()};
    // The feeders in the order the island starts them: sessions, then media, then the clipboard.
    m_controller = std::make_unique<IslandController>(
        parts, QList<Feeder *>{m_state.get(), m_media.get(), m_clipboard.get()}, *m_scheduler,
        IslandController::Services{*m_platform.panelShell, *m_platform.pointer, *m_platform.desktopWindows}, clock);
    connectActivity();
}

IslandAppDelegate::~IslandAppDelegate() = default;

void IslandAppDelegate::connectActivity()
{
    m_activity->followIsland(
        [state = QPointer<IslandState>(m_state.get())] { return state ? state->busyInputs() : IslandBusyInputs{}; });
    for (auto signal : {&IslandState::expandedChanged, &IslandState::pointerInsideChanged,
                        &IslandState::pinnedByAlertChanged, &IslandState::showSettingsChanged,
                        &IslandState::justFinishedAgentChanged, &IslandState::agentSessionsChanged})
        connect(m_state.get(), signal, m_activity.get(), &AppActivity::recomputeIslandBusy, Qt::QueuedConnection);
    m_state->setUserIdle(m_scheduler->userIdle());
    connect(m_scheduler.get(), &IslandScheduler::userIdleChanged, m_state.get(),
            [this] { m_state->setUserIdle(m_scheduler->userIdle()); });
}

void IslandAppDelegate::applicationDidFinishLaunching()
{
    // 1. No taskbar, pager or switcher entry and no focus: the island's window (PanelShell::prepare)
    //    does what an accessory application does elsewhere.
    // 2. The hook scripts are written at every start; registered only where Claude Code is set up.
    HookInstaller(m_paths, QDir::homePath(), Clock::system()).installIfNeeded();
    // 3. Decisions that no reporter picked up in time are removed.
    m_decisions->sweep();
    // 4. The island, which starts its feeders and the scheduler's watch when it first shows.
    m_controller->start();
}

void IslandAppDelegate::applicationWillTerminate()
{
    m_state->stopWatching();
}

} // namespace vaxo
