#pragma once

#include "media/ArtworkCache.h"
#include "platform/MediaPlayers.h"
#include "platform/linux/MprisPlayerList.h"

#include <QDBusConnection>

namespace vaxo {
class Clock;
}

namespace vaxo::linux_platform {

// The media players of a Linux desktop: every MPRIS player on the session bus. All of them are read
// at once, each call with a short time limit, and the record to show is chosen once every player has
// answered or run out of time. Spotify is "Spotify", browsers are "Chrome", every other player is
// "Music". Commands go to the player that produced the record, over MPRIS, for every source: no
// permission is needed. There is no system-wide now-playing service.
class MprisMediaPlayers final : public MediaPlayers {
    Q_OBJECT
public:
    // clock stamps the records; it must outlive the players.
    MprisMediaPlayers(const QDBusConnection &session, const Clock &clock, QObject *parent = nullptr);

    bool anyPlayerRunning() const override { return !m_list.isEmpty(); }
    // The bus names of the players known now.
    QStringList names() const;
    bool hasSystemSource() const override { return false; }
    void readSystem(std::function<void(SystemReply)> done) override;
    void readPlayers(Reply done) override;

    bool controlsDirectly(const NowPlaying &record) const override { return !record.player.isEmpty(); }
    void send(const NowPlaying &record, MediaCommand command, std::function<void()> done) override;
    // Goes to the player that a read would show, as the desktop's media keys do.
    void postMediaKey(MediaCommand command) override;
    bool mediaKeysNeedPermission() const override { return false; }
    bool accessibilityTrusted(bool) override { return true; }
    void openAccessibilitySettings() override {}

private:
    struct Poll;
    void collect(const std::shared_ptr<Poll> &poll, const QString &name, const QDBusPendingCall &call);
    void finish(const Poll &poll);

    const Clock &m_clock;
    MprisPlayerList m_list;
    ArtworkCache m_artwork;
};

} // namespace vaxo::linux_platform
