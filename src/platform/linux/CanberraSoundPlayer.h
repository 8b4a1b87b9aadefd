#pragma once

#include "platform/SoundPlayer.h"

struct ca_context;

namespace vaxo::linux_platform {

// Event sounds from the freedesktop sound theme. "Submarine" plays "message-new-instant" and "Glass"
// plays "complete"; other names are looked up in the theme as they are.
class CanberraSoundPlayer final : public SoundPlayer {
public:
    CanberraSoundPlayer();
    ~CanberraSoundPlayer() override;
    CanberraSoundPlayer(const CanberraSoundPlayer &) = delete;
    CanberraSoundPlayer &operator=(const CanberraSoundPlayer &) = delete;

    void play(const QString &name) override;

    static QString themeSound(const QString &name);

private:
    ca_context *m_context = nullptr;
};

} // namespace vaxo::linux_platform
