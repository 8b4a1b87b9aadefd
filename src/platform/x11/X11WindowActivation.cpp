#include "platform/x11/X11WindowActivation.h"

#include "platform/x11/XcbValues.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace vaxo::linux_platform::X11WindowActivation {
namespace {

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

// The managed window of the first process in pids that has one; of several, the top-most.
xcb_window_t windowOf(xcb_connection_t *c, xcb_window_t root, const QList<qint64> &pids)
{
    const QList<quint32> stacking = xcbValues(c, root, xcbAtom(c, "_NET_CLIENT_LIST_STACKING"), XCB_ATOM_WINDOW);
    const xcb_atom_t pidAtom = xcbAtom(c, "_NET_WM_PID");
    QList<qint64> owners;
    for (quint32 window : stacking)
        owners << xcbValues(c, window, pidAtom, XCB_ATOM_CARDINAL).value(0);
    for (qint64 pid : pids)
        for (qsizetype i = stacking.size() - 1; i >= 0; --i)
            if (owners.at(i) == pid)
                return stacking.at(i);
    return XCB_WINDOW_NONE;
}

} // namespace

bool activateWindowOf(const QList<qint64> &pids)
{
    Connection connection(xcb_connect(nullptr, nullptr), &xcb_disconnect);
    xcb_connection_t *c = connection.get();
    if (xcb_connection_has_error(c))
        return false;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    const xcb_window_t window = windowOf(c, root, pids);
    if (window == XCB_WINDOW_NONE)
        return false;
    // Asked as a pager would (source 2), which window managers honour without focus-stealing checks;
    // they also switch to the window's desktop and restore it when it is minimised.
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = xcbAtom(c, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = 2;
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(c, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message));
    // A round trip, so that the request has reached the server before the connection closes.
    std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    return true;
}

} // namespace vaxo::linux_platform::X11WindowActivation
