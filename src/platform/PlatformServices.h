#pragma once

#include <memory>

class QObject;

namespace vaxo {

class FolderWatcher;
class PanelShell;
class SoundPlayer;

// The platform's implementations of the services the program needs, made by the platform folder
// that the build selects.
struct PlatformServices {
    std::unique_ptr<SoundPlayer> sounds;
    std::unique_ptr<PanelShell> panelShell;

    // A new watcher for a folder; the caller owns it.
    static FolderWatcher *newFolderWatcher(QObject *parent = nullptr);
    static PlatformServices make();
};

} // namespace vaxo
