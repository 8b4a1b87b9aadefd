#pragma once

#include "platform/IdleTimeSource.h"

struct _XDisplay;

namespace vaxo::linux_platform {

// Idle time from the X server's screen-saver extension (all input devices, the whole session), read
// on a connection of its own to $DISPLAY. Without a display or the extension it reports 0.
class XScreenSaverIdleTime final : public IdleTimeSource {
    Q_OBJECT
public:
    explicit XScreenSaverIdleTime(QObject *parent = nullptr);
    ~XScreenSaverIdleTime() override;

    double idleSeconds() override;

private:
    _XDisplay *m_display = nullptr;
};

} // namespace vaxo::linux_platform
