#pragma once

#include "base/AppPaths.h"
#include "feedback/Diagnostics.h"
#include "platform/PlatformServices.h"

#include <QObject>

#include <memory>

namespace vaxo {

class AppActivity;
class AskDecision;
class Feedback;
class FaceAssets;
class IslandClipboard;
class IslandController;
class IslandLook;
class IslandMedia;
class IslandScheduler;
class IslandSettings;
class IslandState;
class IslandVoice;
class LoginItem;
class MoodArt;
class MusicSection;
class SessionsSection;
class SettingsCard;
class SummonHotKey;
class SummonPanel;
class SummonView;

// The program's start-up object and composition root: makes every long-lived object in one place and
// hands each what it needs, runs the start-up steps in order, and stops the session watching when the
// program terminates.
class IslandAppDelegate : public QObject {
    Q_OBJECT
public:
    explicit IslandAppDelegate(AppPaths paths, QObject *parent = nullptr);
    ~IslandAppDelegate() override;

    void applicationDidFinishLaunching();
    void applicationWillTerminate();

    IslandState &state() const { return *m_state; }
    IslandController &controller() const { return *m_controller; }
    SummonPanel &summonPanel() const { return *m_summonPanel; }
    AppActivity &activity() const { return *m_activity; }

private:
    // The animation gate follows the island; the mood follows the user's idleness.
    void connectActivity();
    // What a problem report says about this copy of the program and the machine.
    Diagnostics diagnostics() const;

    AppPaths m_paths;
    PlatformServices m_platform;
    std::unique_ptr<IslandSettings> m_settings;
    std::unique_ptr<AppActivity> m_activity;
    std::unique_ptr<IslandScheduler> m_scheduler;
    std::unique_ptr<AskDecision> m_decisions;
    std::unique_ptr<IslandState> m_state;
    std::unique_ptr<IslandMedia> m_media;
    std::unique_ptr<MusicSection> m_music;
    std::unique_ptr<IslandClipboard> m_clipboard;
    std::unique_ptr<SessionsSection> m_sessions;
    std::unique_ptr<IslandLook> m_look;
    std::unique_ptr<SettingsCard> m_settingsCard;
    std::unique_ptr<LoginItem> m_loginItem;
    std::unique_ptr<Feedback> m_feedback;
    std::unique_ptr<FaceAssets> m_face;
    std::unique_ptr<MoodArt> m_moodArt;
    std::unique_ptr<IslandController> m_controller;
    std::unique_ptr<IslandVoice> m_voice;
    std::unique_ptr<SummonView> m_summonView;
    std::unique_ptr<SummonPanel> m_summonPanel;
    std::unique_ptr<SummonHotKey> m_summonKey;
};

} // namespace vaxo
