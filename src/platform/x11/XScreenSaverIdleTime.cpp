#include "platform/x11/XScreenSaverIdleTime.h"

#include <X11/Xlib.h>
#include <X11/extensions/scrnsaver.h>

namespace vaxo::linux_platform {

XScreenSaverIdleTime::XScreenSaverIdleTime(QObject *parent) : IdleTimeSource(parent)
{
    m_display = XOpenDisplay(nullptr);
    int event = 0;
    int error = 0;
    if (m_display && !XScreenSaverQueryExtension(m_display, &event, &error)) {
        XCloseDisplay(m_display);
        m_display = nullptr;
    }
}

XScreenSaverIdleTime::~XScreenSaverIdleTime()
{
    if (m_display)
        XCloseDisplay(m_display);
}

double XScreenSaverIdleTime::idleSeconds()
{
    if (!m_display)
        return 0;
    XScreenSaverInfo info{};
    if (!XScreenSaverQueryInfo(m_display, DefaultRootWindow(m_display), &info))
        return 0;
    return double(info.idle) / 1000.0;
}

} // namespace vaxo::linux_platform
