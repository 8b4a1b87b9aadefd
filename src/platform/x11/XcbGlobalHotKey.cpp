#include "platform/x11/XcbGlobalHotKey.h"

#include "platform/x11/XcbKeyboardMap.h"

#include <QGuiApplication>

#include <cstdlib>

namespace vaxo::linux_platform {

XcbGlobalHotKey::XcbGlobalHotKey(QObject *parent) : GlobalHotKey(parent)
{
    const auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    m_connection = x11 ? x11->connection() : nullptr;
    if (!m_connection)
        return;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    m_xkbEvent = XcbKeyboardMap::keyboardExtensionEvent(m_connection);
    qGuiApp->installNativeEventFilter(this);
}

XcbGlobalHotKey::~XcbGlobalHotKey()
{
    if (!m_connection)
        return;
    release();
    qGuiApp->removeNativeEventFilter(this);
}

GlobalHotKey::Grab XcbGlobalHotKey::grab(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    release();
    if (!m_connection)
        return {0, QStringLiteral("no X11 display")};
    const XcbKeyboardMap map(m_connection);
    const xcb_keycode_t keycode = map.keycodeFor(key);
    if (keycode == 0)
        return {0, QStringLiteral("no key on this keyboard types %1").arg(QChar(key).toLower())};
    const XcbKeyboardMap::Mask mask = map.maskFor(modifiers);
    if (!mask.missing.isEmpty())
        return {0, QStringLiteral("%1 is not mapped to a modifier").arg(mask.missing)};

    const quint16 locks = map.numLockMask() | XCB_MOD_MASK_LOCK;
    QList<quint16> variants;
    for (const quint16 lock : {quint16(0), map.numLockMask(), quint16(XCB_MOD_MASK_LOCK), locks})
        if (!variants.contains(lock))
            variants << lock;
    QList<xcb_void_cookie_t> cookies;
    for (const quint16 lock : std::as_const(variants))
        cookies << xcb_grab_key_checked(m_connection, 1, m_root, mask.bits | lock, keycode, XCB_GRAB_MODE_ASYNC,
                                        XCB_GRAB_MODE_ASYNC);
    int status = 0;
    for (const xcb_void_cookie_t cookie : std::as_const(cookies)) {
        if (xcb_generic_error_t *error = xcb_request_check(m_connection, cookie)) {
            status = status ? status : error->error_code;
            std::free(error);
        }
    }
    m_keycode = keycode;
    m_modifiers = mask.bits;
    m_locks = locks;
    if (status != 0)
        release(); // half a grab would answer only with some lock keys on
    return {status, QString()};
}

void XcbGlobalHotKey::release()
{
    if (!m_connection || m_keycode == 0)
        return;
    xcb_ungrab_key(m_connection, m_keycode, m_root, XCB_MOD_MASK_ANY);
    xcb_flush(m_connection);
    m_keycode = 0;
}

bool XcbGlobalHotKey::isOurs(const xcb_key_press_event_t &event) const
{
    return m_keycode != 0 && event.detail == m_keycode && event.event == m_root &&
           (event.state & 0xff & ~m_locks) == m_modifiers;
}

bool XcbGlobalHotKey::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    const quint8 type = event->response_type & 0x7f;
    if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
        const auto &key = *reinterpret_cast<const xcb_key_press_event_t *>(event);
        if (!isOurs(key))
            return false;
        if (type == XCB_KEY_RELEASE)
            m_lastRelease = key.time;
        else if (key.time != m_lastRelease)
            emit pressed();
        return true;
    }
    // The keyboard's map changed: the core event, or the keyboard extension's new-keyboard (0) and
    // map (1) notices, which replace it for clients that use the extension, as Qt does.
    const bool coreChange = type == XCB_MAPPING_NOTIFY &&
                            reinterpret_cast<const xcb_mapping_notify_event_t *>(event)->request != XCB_MAPPING_POINTER;
    const bool xkbChange = m_xkbEvent != 0 && type == m_xkbEvent && event->pad0 <= 1;
    if (coreChange || xkbChange)
        noteKeyboardChange();
    return false;
}

void XcbGlobalHotKey::noteKeyboardChange()
{
    // Map changes come in bursts; one new grab after the last of them.
    if (std::exchange(m_changePending, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_changePending = false;
            emit keyboardChanged();
        },
        Qt::QueuedConnection);
}

} // namespace vaxo::linux_platform
