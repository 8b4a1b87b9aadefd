#include "platform/x11/XInputPointerMonitor.h"

#include <QSocketNotifier>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdlib>
#include <memory>

namespace vaxo::linux_platform {
namespace {

template <typename T> using Reply = std::unique_ptr<T, decltype(&std::free)>;

// Left and right: the buttons that mean "I am doing something else now". Wheel turns are buttons too.
bool meaningful(quint32 button)
{
    return button == 1 || button == 3;
}

} // namespace

XInputPointerMonitor::XInputPointerMonitor(QObject *parent) : PointerMonitor(parent)
{
    xcb_connection_t *c = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(c)) {
        xcb_disconnect(c);
        return;
    }
    const xcb_query_extension_reply_t *xi = xcb_get_extension_data(c, &xcb_input_id);
    Reply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(c, xcb_input_xi_query_version(c, 2, 2), nullptr), &std::free);
    if (!xi || !xi->present || !version || version->major_version < 2) {
        xcb_disconnect(c);
        return;
    }
    m_connection = c;
    m_opcode = xi->major_opcode;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    m_notifier = new QSocketNotifier(xcb_get_file_descriptor(c), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &XInputPointerMonitor::readEvents);
}

XInputPointerMonitor::~XInputPointerMonitor()
{
    if (m_connection)
        xcb_disconnect(m_connection);
}

void XInputPointerMonitor::watch(bool presses, bool motion)
{
    const quint32 mask =
        (presses ? XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS : 0) | (motion ? XCB_INPUT_XI_EVENT_MASK_RAW_MOTION : 0);
    if (!m_connection || mask == m_mask)
        return;
    m_mask = mask;
    struct {
        xcb_input_event_mask_t head;
        quint32 bits;
    } select{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, mask};
    xcb_input_xi_select_events(m_connection, m_root, 1, &select.head);
    xcb_flush(m_connection);
}

void XInputPointerMonitor::readEvents()
{
    bool pressed = false, moved = false;
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        if ((event->response_type & 0x7f) == XCB_GE_GENERIC) {
            const auto *ge = reinterpret_cast<xcb_ge_generic_event_t *>(event);
            if (ge->extension == m_opcode && ge->event_type == XCB_INPUT_RAW_BUTTON_PRESS)
                pressed |= meaningful(reinterpret_cast<xcb_input_raw_button_press_event_t *>(event)->detail);
            else if (ge->extension == m_opcode && ge->event_type == XCB_INPUT_RAW_MOTION)
                moved = true;
        }
        std::free(event);
    }
    if (xcb_connection_has_error(m_connection))
        m_notifier->setEnabled(false); // the server is gone; nothing more will come
    // Raw events come in bursts; one report each is all the island needs.
    if (moved && (m_mask & XCB_INPUT_XI_EVENT_MASK_RAW_MOTION))
        emit this->moved();
    if (pressed && (m_mask & XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS))
        emit this->pressed();
}

} // namespace vaxo::linux_platform
