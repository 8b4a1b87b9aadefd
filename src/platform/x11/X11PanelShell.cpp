#include "platform/x11/X11PanelShell.h"

#include <QGuiApplication>
#include <QRect>
#include <QWindow>

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
    window.setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::X11BypassWindowManagerHint |
                    Qt::WindowDoesNotAcceptFocus | Qt::Tool);
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
        XShapeCombineRectangles(dpy, window.winId(), ShapeBounding, 0, 0, &drawn, drawnRect.isEmpty() ? 0 : 1, ShapeSet,
                                Unsorted);
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
