#include "platform/linux/X11PanelShell.h"

#include <QGuiApplication>
#include <QRect>
#include <QWindow>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/shape.h>

namespace vaxo::linux_platform {
namespace {

Display *display()
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->display() : nullptr;
}

XRectangle deviceRect(const QWindow &window, const QRect &rect)
{
    const qreal ratio = window.devicePixelRatio();
    return {short(rect.x() * ratio), short(rect.y() * ratio), static_cast<unsigned short>(rect.width() * ratio),
            static_cast<unsigned short>(rect.height() * ratio)};
}

} // namespace

void X11PanelShell::prepare(QWindow &window)
{
    Display *dpy = display();
    if (!dpy)
        return;
    const Window id = window.winId();
    const char *names[] = {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER", "_NET_WM_STATE_STICKY",
                           "_NET_WM_STATE_ABOVE"};
    Atom states[4];
    XInternAtoms(dpy, const_cast<char **>(names), 4, False, states);
    XChangeProperty(dpy, id, XInternAtom(dpy, "_NET_WM_STATE", False), XA_ATOM, 32, PropModeAppend,
                    reinterpret_cast<unsigned char *>(states), 4);
    // On every workspace.
    const long allDesktops = 0xFFFFFFFF;
    XChangeProperty(dpy, id, XInternAtom(dpy, "_NET_WM_DESKTOP", False), XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(&allDesktops), 1);
    XFlush(dpy);
}

void X11PanelShell::setShape(QWindow &window, const QRect &rect, const QRect &drawnRect)
{
    Display *dpy = display();
    if (!dpy)
        return;
    XRectangle input = deviceRect(window, rect);
    XShapeCombineRectangles(dpy, window.winId(), ShapeInput, 0, 0, &input, rect.isEmpty() ? 0 : 1, ShapeSet, Unsorted);
    if (!compositorRunning()) {
        XRectangle drawn = deviceRect(window, drawnRect);
        XShapeCombineRectangles(dpy, window.winId(), ShapeBounding, 0, 0, &drawn, 1, ShapeSet, Unsorted);
    }
    XFlush(dpy);
}

bool X11PanelShell::compositorRunning()
{
    Display *dpy = display();
    if (!dpy)
        return false;
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(DefaultScreen(dpy));
    return XGetSelectionOwner(dpy, XInternAtom(dpy, name.constData(), False)) != None;
}

} // namespace vaxo::linux_platform
