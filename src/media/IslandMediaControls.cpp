#include "media/IslandMedia.h"

#include "base/Clock.h"
#include "base/Timer.h"
#include "media/MusicText.h"
#include "platform/MediaPlayers.h"

#include <QPointer>

// IslandMedia, continued: the music section's commands, and the accessibility trust that media keys
// need where the platform asks for it.
namespace vaxo {

bool IslandMedia::mediaKeysNeedPermission() const
{
    return m_players.mediaKeysNeedPermission();
}

bool IslandMedia::canControlNowPlaying() const
{
    return (m_now && m_players.controlsDirectly(*m_now)) || m_accessibilityGranted;
}

void IslandMedia::announceControl()
{
    const bool can = canControlNowPlaying();
    if (can == m_canControl)
        return;
    m_canControl = can;
    emit canControlNowPlayingChanged();
}

void IslandMedia::setBlockedReason(const std::optional<QString> &reason)
{
    if (reason == m_blockedReason)
        return;
    m_blockedReason = reason;
    emit controlBlockedReasonChanged();
}

void IslandMedia::syncAccessibilityState()
{
    const bool granted = m_players.accessibilityTrusted(false);
    if (granted == m_accessibilityGranted)
        return;
    m_accessibilityGranted = granted;
    if (granted)
        setBlockedReason(std::nullopt);
    emit accessibilityGrantedChanged();
    announceControl();
}

void IslandMedia::after(double seconds, std::function<void()> action)
{
    Timer *timer = m_clock.createTimer(this);
    connect(timer, &Timer::timeout, this, [timer, action = std::move(action)] {
        timer->deleteLater();
        action();
    });
    timer->start(seconds);
}

void IslandMedia::send(Command command)
{
    QPointer<IslandMedia> self(this);
    if (m_now && m_players.controlsDirectly(*m_now)) {
        setBlockedReason(std::nullopt);
        m_players.send(*m_now, command, [self] {
            if (!self)
                return;
            self->refresh();
            self->after(kCommandSettle, [self] {
                if (self)
                    self->refresh();
            });
        });
        return;
    }
    if (!m_players.accessibilityTrusted(false)) {
        setBlockedReason(MusicText::mediaKeysBlocked());
        grantMediaKeyAccess();
        log(QStringLiteral("media key blocked: no Accessibility permission"));
        return;
    }
    setBlockedReason(std::nullopt);
    m_players.postMediaKey(command);
    after(kMediaKeyRefresh, [this] { refresh(); });
}

void IslandMedia::grantMediaKeyAccess()
{
    m_players.accessibilityTrusted(true);
    after(kGrantRecheck, [this] {
        syncAccessibilityState();
        if (!m_accessibilityGranted)
            m_players.openAccessibilitySettings();
    });
}

} // namespace vaxo
