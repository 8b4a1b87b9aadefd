#include "platform/linux/X11FrontmostApp.h"

#include <QFile>
#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace vaxo::linux_platform {
namespace {

struct FreeDeleter {
    void operator()(void *p) const { std::free(p); }
};
template <typename T> using Reply = std::unique_ptr<T, FreeDeleter>;

xcb_atom_t atom(xcb_connection_t *c, const char *name)
{
    Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(c, xcb_intern_atom(c, 1, uint16_t(qstrlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QByteArray property(xcb_connection_t *c, xcb_window_t window, xcb_atom_t name, xcb_atom_t type)
{
    if (name == XCB_ATOM_NONE)
        return {};
    Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(c, xcb_get_property(c, 0, window, name, type, 0, 1024), nullptr));
    if (!reply || reply->type == XCB_ATOM_NONE)
        return {};
    return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

template <typename T> T firstValue(const QByteArray &bytes)
{
    T value{};
    if (bytes.size() >= qsizetype(sizeof(T)))
        std::memcpy(&value, bytes.constData(), sizeof(T));
    return value;
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
    const auto window = firstValue<xcb_window_t>(property(c, root, atom(c, "_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW));
    if (window == XCB_WINDOW_NONE)
        return std::nullopt;
    // WM_CLASS holds two strings: the instance name, then the class.
    const QList<QByteArray> wmClass = property(c, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING).split('\0');
    AppIdentity app;
    app.instance = QString::fromLocal8Bit(wmClass.value(0));
    app.identifier = QString::fromLocal8Bit(wmClass.value(1));
    app.process = processName(firstValue<uint32_t>(property(c, window, atom(c, "_NET_WM_PID"), XCB_ATOM_CARDINAL)));
    app.name = !app.identifier.isEmpty() ? app.identifier : !app.instance.isEmpty() ? app.instance : app.process;
    return app;
}

} // namespace vaxo::linux_platform
