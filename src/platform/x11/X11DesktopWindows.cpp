#include "platform/x11/X11DesktopWindows.h"

#include "platform/x11/XcbValues.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSocketNotifier>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace vaxo::linux_platform {
namespace {

constexpr quint32 kAllDesktops = 0xFFFFFFFF;

} // namespace

X11DesktopWindows::X11DesktopWindows(QObject *parent) : DesktopWindows(parent)
{
    xcb_connection_t *c = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(c)) {
        xcb_disconnect(c);
        return;
    }
    m_connection = c;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(c, m_root, XCB_CW_EVENT_MASK, &mask);
    followActiveWindow();
    m_notifier = new QSocketNotifier(xcb_get_file_descriptor(c), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &X11DesktopWindows::readEvents);
}

X11DesktopWindows::~X11DesktopWindows()
{
    if (m_connection)
        xcb_disconnect(m_connection);
}

quint32 X11DesktopWindows::atom(const char *name) const
{
    const auto cached = m_atoms.constFind(name);
    if (cached != m_atoms.constEnd())
        return *cached;
    const quint32 value = xcbAtom(m_connection, name);
    m_atoms.insert(name, value);
    return value;
}

// The state of the active window tells when it goes full screen without the stacking order changing.
void X11DesktopWindows::followActiveWindow()
{
    const quint32 active = xcbValues(m_connection, m_root, atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW).value(0);
    if (active == m_active)
        return;
    const quint32 none = XCB_EVENT_MASK_NO_EVENT, property = XCB_EVENT_MASK_PROPERTY_CHANGE;
    if (m_active)
        xcb_change_window_attributes(m_connection, m_active, XCB_CW_EVENT_MASK, &none);
    m_active = active;
    if (m_active)
        xcb_change_window_attributes(m_connection, m_active, XCB_CW_EVENT_MASK, &property);
    xcb_flush(m_connection);
}

void X11DesktopWindows::readEvents()
{
    const quint32 watched[] = {atom("_NET_ACTIVE_WINDOW"), atom("_NET_CLIENT_LIST_STACKING"),
                               atom("_NET_CURRENT_DESKTOP"), atom("_NET_WM_STATE")};
    bool changed = false;
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY) {
            const quint32 name = reinterpret_cast<xcb_property_notify_event_t *>(event)->atom;
            changed |= std::find(std::begin(watched), std::end(watched), name) != std::end(watched);
        }
        std::free(event);
    }
    if (xcb_connection_has_error(m_connection)) {
        m_notifier->setEnabled(false); // the server is gone; nothing more will come
        return;
    }
    if (!changed)
        return;
    followActiveWindow();
    emit this->changed();
}

QList<DesktopWindow> X11DesktopWindows::windows() const
{
    QList<DesktopWindow> list;
    if (!m_connection)
        return list;
    xcb_connection_t *c = m_connection;
    const QList<quint32> ignoredTypes{atom("_NET_WM_WINDOW_TYPE_DESKTOP"), atom("_NET_WM_WINDOW_TYPE_DOCK")};
    const quint32 desktop = xcbValues(c, m_root, atom("_NET_CURRENT_DESKTOP"), XCB_ATOM_CARDINAL).value(0);
    // X coordinates are device pixels; the island measures in device-independent ones.
    const QScreen *screen = qGuiApp ? QGuiApplication::primaryScreen() : nullptr;
    const double ratio = screen ? screen->devicePixelRatio() : 1.0;

    for (quint32 window : xcbValues(c, m_root, atom("_NET_CLIENT_LIST_STACKING"), XCB_ATOM_WINDOW)) {
        const QList<quint32> types = xcbValues(c, window, atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM);
        const QList<quint32> states = xcbValues(c, window, atom("_NET_WM_STATE"), XCB_ATOM_ATOM);
        const QList<quint32> onDesktop = xcbValues(c, window, atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL);
        if (std::any_of(types.begin(), types.end(), [&](quint32 t) { return ignoredTypes.contains(t); }) ||
            states.contains(atom("_NET_WM_STATE_HIDDEN")) ||
            (!onDesktop.isEmpty() && onDesktop.first() != desktop && onDesktop.first() != kAllDesktops))
            continue;
        XcbReply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, window), nullptr), &std::free);
        XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr),
                                                    &std::free);
        XcbReply<xcb_translate_coordinates_reply_t> origin(
            xcb_translate_coordinates_reply(c, xcb_translate_coordinates(c, window, m_root, 0, 0), nullptr),
            &std::free);
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE || !geometry || !origin)
            continue;
        const QRectF bounds(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
        const QRectF scaled(bounds.topLeft() / ratio, bounds.size() / ratio);
        list.append({scaled.toRect(), states.contains(atom("_NET_WM_STATE_FULLSCREEN"))});
    }
    return list;
}

} // namespace vaxo::linux_platform
