#pragma once

#include "platform/DesktopWindows.h"

#include <QHash>

struct xcb_connection_t;
class QSocketNotifier;

namespace vaxo::linux_platform {

// DesktopWindows on an EWMH window manager: the windows of _NET_CLIENT_LIST_STACKING that are mapped,
// not hidden and on the current workspace, with their _NET_WM_STATE_FULLSCREEN. Changes are seen as
// property changes on the root window (the active window, the stacking order, the workspace) and on the
// active window (its state), on a connection of its own. Without a window manager the list is empty.
class X11DesktopWindows final : public DesktopWindows {
    Q_OBJECT
public:
    explicit X11DesktopWindows(QObject *parent = nullptr);
    ~X11DesktopWindows() override;

    QList<DesktopWindow> windows() const override;

private:
    quint32 atom(const char *name) const;
    void readEvents();
    void followActiveWindow();

    xcb_connection_t *m_connection = nullptr;
    QSocketNotifier *m_notifier = nullptr;
    quint32 m_root = 0;
    quint32 m_active = 0;
    mutable QHash<QByteArray, quint32> m_atoms;
};

} // namespace vaxo::linux_platform
