#pragma once

#include <QString>

#include <memory>

class QObject;

namespace vaxo {

class ActivityPlatform;
class ArtDecoder;
class DesktopWindows;
class FolderWatcher;
class FrontmostApp;
class GlobalHotKey;
class InstalledApps;
class LoginRegistration;
class MailDrafts;
class MediaPlayers;
class PanelShell;
class Pasteboard;
class PointerMonitor;
class ProcessWatcher;
class SoundPlayer;
class SpeechSynthesizer;
class TerminalFocus;

// The desktop's implementations of the services the program needs; the composition root picks the
// backend that makes each one.
struct PlatformServices {
    PlatformServices();
    PlatformServices(PlatformServices &&) noexcept;
    ~PlatformServices();

    std::unique_ptr<ActivityPlatform> activity;
    std::unique_ptr<SoundPlayer> sounds;
    std::unique_ptr<PanelShell> panelShell;
    std::unique_ptr<PointerMonitor> pointer;
    std::unique_ptr<DesktopWindows> desktopWindows;
    std::unique_ptr<Pasteboard> pasteboard;
    std::unique_ptr<FrontmostApp> frontmost;
    std::unique_ptr<MediaPlayers> media;
    std::unique_ptr<GlobalHotKey> hotKey;
    std::unique_ptr<SpeechSynthesizer> speech;
    std::unique_ptr<TerminalFocus> terminalFocus;
    std::unique_ptr<InstalledApps> installedApps;
    std::unique_ptr<LoginRegistration> loginRegistration;
    std::unique_ptr<MailDrafts> mailDrafts;
    std::unique_ptr<ArtDecoder> artDecoder;

    // A new watcher for a folder; the caller owns it.
    static FolderWatcher *newFolderWatcher(QObject *parent = nullptr);
    // A new watcher of processes; the caller owns it.
    static ProcessWatcher *newProcessWatcher(QObject *parent = nullptr);

    // The machine's model as its maker names it, "unknown" when the system does not say.
    static QString hardwareModel();

    // Before the application object: route the log lines to the system log.
    static void installLogging();
};

} // namespace vaxo
