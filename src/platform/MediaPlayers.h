#pragma once

#include "media/MediaCommand.h"
#include "media/NowPlaying.h"

#include <QObject>

#include <functional>
#include <optional>

namespace vaxo {

// The media players the now-playing reader asks and commands. Nothing here waits for a player: every
// answer comes back later on the main thread, through the callback given. A player that does not
// answer within a short time, vanishes or answers garbage counts as playing nothing. Main thread only.
class MediaPlayers : public QObject {
    Q_OBJECT
public:
    using Reply = std::function<void(std::optional<NowPlaying>)>;
    // The system-wide now-playing service's answer; works is false once it proved missing or too
    // slow, and it is then not asked again.
    struct SystemReply {
        std::optional<NowPlaying> record;
        bool works = true;
    };

    using QObject::QObject;

    // At least one player that could be read is running. Asks nobody.
    virtual bool anyPlayerRunning() const = 0;

    // The platform has a system-wide now-playing service; false where there is none.
    virtual bool hasSystemSource() const = 0;
    virtual void readSystem(std::function<void(SystemReply)> done) = 0;
    // What the players play, in order of preference: Spotify, then the other music players, then the
    // browsers; within one of them a playing player before a paused one. No record when none plays.
    virtual void readPlayers(Reply done) = 0;

    // The player behind the record takes commands directly, without any permission.
    virtual bool controlsDirectly(const NowPlaying &record) const = 0;
    // Sends the command to that player; done runs once the player has handled it or failed to.
    virtual void send(const NowPlaying &record, MediaCommand command, std::function<void()> done) = 0;
    // A media key press for whichever player the desktop gives it to; where mediaKeysNeedPermission(),
    // only an accessibility-trusted process may post it.
    virtual void postMediaKey(MediaCommand command) = 0;
    virtual bool mediaKeysNeedPermission() const = 0;
    // The process is trusted for accessibility; with prompt, the platform offers its own dialog.
    virtual bool accessibilityTrusted(bool prompt) = 0;
    // Where the user grants that trust; nothing where there is no such place.
    virtual void openAccessibilitySettings() = 0;

signals:
    // A player went away: whatever it produced is stale.
    void playerGone(const QString &player);
    // Something worth a line in the media log (a player that stopped answering, a failed command).
    void note(const QString &message);
};

} // namespace vaxo
