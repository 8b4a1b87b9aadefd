#include "app/IslandAppDelegate.h"

#include "app/Backends.h"

#include "agents/AskDecision.h"
#include "agents/HookInstaller.h"
#include "agents/LocalHookSource.h"
#include "agents/SessionLiveness.h"
#include "base/AppActivity.h"
#include "base/Clock.h"
#include "base/IslandScheduler.h"
#include "base/IslandSettings.h"
#include "base/LoginItem.h"
#include "clipboard/IslandClipboard.h"
#include "face/FaceAssets.h"
#include "face/IslandVoice.h"
#include "face/MoodArt.h"
#include "feedback/Feedback.h"
#include "island/IslandController.h"
#include "island/IslandLook.h"
#include "island/IslandState.h"
#include "island/SessionsSection.h"
#include "island/SettingsCard.h"
#include "island/summon/SummonHotKey.h"
#include "island/summon/SummonPanel.h"
#include "island/summon/SummonView.h"
#include "media/IslandMedia.h"
#include "media/MusicSection.h"
#include "platform/ActivityPlatform.h"
#include "platform/DesktopWindows.h"
#include "platform/InstalledApps.h"
#include "platform/LoginRegistration.h"
#include "platform/MailDrafts.h"
#include "platform/MediaPlayers.h"
#include "platform/PanelShell.h"
#include "platform/PointerMonitor.h"
#include "platform/SoundPlayer.h"
#include "platform/SpeechSynthesizer.h"
#include "platform/TerminalFocus.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QSysInfo>

namespace vaxo {

IslandAppDelegate::IslandAppDelegate(AppPaths paths, QObject *parent)
    : QObject(parent), m_paths(std::move(paths)), m_platform(Backends::make()),
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

    auto *liveness = new SessionLiveness(m_paths.sessions(), PlatformServices::newProcessWatcher(),
                                         QDir::homePath() + QStringLiteral("/.claude/sessions"),
                                         PlatformServices::newFolderWatcher());
    auto source =
        std::make_unique<LocalHookSource>(m_paths.sessions(), clock, PlatformServices::newFolderWatcher(), liveness);
    m_state = std::make_unique<IslandState>(std::move(source), clock, *m_settings, *m_platform.sounds);
    m_media = std::make_unique<IslandMedia>(*m_platform.media, *m_scheduler, *m_settings, m_paths, clock,
                                            IslandMedia::Switches::fromEnvironment());
    m_music = std::make_unique<MusicSection>(*m_media, *m_activity, clock);
    m_clipboard = std::make_unique<IslandClipboard>(*m_platform.pasteboard, *m_platform.frontmost, *m_scheduler,
                                                    *m_settings, m_paths, clock);
    m_sessions = std::make_unique<SessionsSection>(*m_state, *m_decisions, clock);
    m_look = std::make_unique<IslandLook>(*m_settings, *m_state);
    m_settingsCard = std::make_unique<SettingsCard>(m_paths.backgrounds());
    m_loginItem = std::make_unique<LoginItem>(*m_platform.loginRegistration);
    m_feedback = std::make_unique<Feedback>(
        Feedback::Services{*m_platform.pasteboard, *m_platform.mailDrafts}, [this] { return diagnostics(); }, clock);
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
                                  m_loginItem.get(), m_feedback.get(),     m_platform.installedApps.get(),
                                  m_moodArt.get()};
    // The login switch shows the system's record as it is whenever the settings open.
    connect(m_state.get(), &IslandState::showSettingsChanged, m_loginItem.get(), [this] {
        if (m_state->showSettings())
            m_loginItem->refresh();
    });
    // The feeders in the order the island starts them: sessions, then media, then the clipboard.
    m_controller = std::make_unique<IslandController>(
        parts, QList<Feeder *>{m_state.get(), m_media.get(), m_clipboard.get()}, *m_scheduler,
        IslandController::Services{*m_platform.panelShell, *m_platform.pointer, *m_platform.desktopWindows,
                                   *m_platform.terminalFocus},
        clock);

    m_voice = std::make_unique<IslandVoice>(*m_platform.speech, IslandVoice::userLanguage(QLocale::system()));
    m_summonView = std::make_unique<SummonView>(*m_state);
    m_summonPanel = std::make_unique<SummonPanel>(parts, m_controller.get(), *m_summonView,
                                                  SummonPanel::Services{*m_platform.panelShell, *m_voice});
    m_summonKey = std::make_unique<SummonHotKey>(*m_platform.hotKey);
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

// The program has no build number of its own: its place shows the placeholder.
Diagnostics IslandAppDelegate::diagnostics() const
{
    return {Diagnostics::versionText(QStringLiteral(VAXO_VERSION), QString()),
            QSysInfo::prettyProductName(),
            PlatformServices::hardwareModel(),
            QSysInfo::currentCpuArchitecture(),
            m_media->accessibilityGranted(),
            int(m_face->userMoods().size())};
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
    // 5. Last, the key that summons Vaxo on her own.
    m_summonKey->setOnPress([panel = m_summonPanel.get()] { panel->toggle(); });
    m_summonKey->registerKey(SummonHotKey::kKey, SummonHotKey::kModifiers);
}

void IslandAppDelegate::applicationWillTerminate()
{
    m_state->stopWatching();
}

} // namespace vaxo
