#pragma once

#include "platform/GlobalHotKey.h"

#include <QAbstractNativeEventFilter>

#include <xcb/xcb.h>

namespace vaxo::linux_platform {

// GlobalHotKey on X11: a passive key grab on the root window, once for each state of Caps Lock and
// Num Lock. The modifiers' bits come from the server's modifier map, as keyboards differ in where Alt
// and Super sit. A grab another client holds fails with the server's BadAccess (10). Off X11 nothing
// can be taken.
class XcbGlobalHotKey final : public GlobalHotKey, public QAbstractNativeEventFilter {
    Q_OBJECT
public:
    explicit XcbGlobalHotKey(QObject *parent = nullptr);
    ~XcbGlobalHotKey() override;

    Grab grab(Qt::Key key, Qt::KeyboardModifiers modifiers) override;
    void release() override;

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    // Our key's press or release on the root window, with exactly our modifiers.
    bool isOurs(const xcb_key_press_event_t &event) const;
    void noteKeyboardChange();

    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_NONE;
    quint8 m_xkbEvent = 0; // the keyboard extension's event code; 0 without it
    xcb_keycode_t m_keycode = 0;
    quint16 m_modifiers = 0;
    quint16 m_locks = 0;               // Caps Lock and Num Lock, which the grab ignores
    xcb_timestamp_t m_lastRelease = 0; // auto-repeat sends a release and a press at one time
    bool m_changePending = false;
};

} // namespace vaxo::linux_platform
