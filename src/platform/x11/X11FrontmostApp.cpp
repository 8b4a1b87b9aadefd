#include "platform/x11/X11FrontmostApp.h"

#include "platform/x11/XcbValues.h"

#include <QFile>
#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>

namespace vaxo::linux_platform {
namespace {

// WM_CLASS holds two strings: the instance name, then the class.
QList<QByteArray> wmClass(xcb_connection_t *c, xcb_window_t window)
{
    XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(c, xcb_get_property(c, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 1024), nullptr),
        &std::free);
    if (!reply || reply->type == XCB_ATOM_NONE)
        return {};
    return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()))
        .split('\0');
}

QString processName(uint32_t pid)
{
    QFile comm(QStringLiteral("/proc/%1/comm").arg(pid));
    if (pid == 0 || !comm.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLocal8Bit(comm.readAll()).trimmed();
}

} // namespace

std::optional<AppIdentity> X11FrontmostApp::current() const
{
    const auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    xcb_connection_t *c = x11 ? x11->connection() : nullptr;
    if (!c)
        return std::nullopt;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    const xcb_window_t window = xcbValues(c, root, xcbAtom(c, "_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW).value(0);
    if (window == XCB_WINDOW_NONE)
        return std::nullopt;
    const QList<QByteArray> names = wmClass(c, window);
    AppIdentity app;
    app.instance = QString::fromLocal8Bit(names.value(0));
    app.identifier = QString::fromLocal8Bit(names.value(1));
    app.process = processName(xcbValues(c, window, xcbAtom(c, "_NET_WM_PID"), XCB_ATOM_CARDINAL).value(0));
    app.name = !app.identifier.isEmpty() ? app.identifier : !app.instance.isEmpty() ? app.instance : app.process;
    return app;
}

} // namespace vaxo::linux_platform
