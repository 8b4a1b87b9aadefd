#pragma once

#include "platform/PointerMonitor.h"

struct xcb_connection_t;
class QSocketNotifier;

namespace vaxo::linux_platform {

// PointerMonitor on X11: XInput 2 raw button and motion events, which the X server sends to whoever
// asks on the root window, whatever window lies under the pointer. A connection of its own keeps them
// apart from the toolkit's input handling; with nothing asked for, the server sends nothing. Without
// an X server or the XInput 2 extension nothing is reported.
class XInputPointerMonitor final : public PointerMonitor {
    Q_OBJECT
public:
    explicit XInputPointerMonitor(QObject *parent = nullptr);
    ~XInputPointerMonitor() override;

    void watch(bool presses, bool motion) override;

private:
    void readEvents();

    xcb_connection_t *m_connection = nullptr;
    QSocketNotifier *m_notifier = nullptr;
    quint8 m_opcode = 0;
    quint32 m_root = 0;
    quint32 m_mask = 0;
};

} // namespace vaxo::linux_platform
