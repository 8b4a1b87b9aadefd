#include "platform/x11/XcbValues.h"

#include <QByteArray>

namespace vaxo::linux_platform {

quint32 xcbAtom(xcb_connection_t *c, const char *name)
{
    XcbReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, quint16(qstrlen(name)), name), nullptr), &std::free);
    return reply ? reply->atom : quint32(XCB_ATOM_NONE);
}

QList<quint32> xcbValues(xcb_connection_t *c, quint32 window, quint32 property, quint32 type)
{
    XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(c, xcb_get_property(c, 0, window, property, type, 0, 4096), nullptr), &std::free);
    QList<quint32> out;
    if (!reply || reply->format != 32)
        return out;
    const auto *data = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    for (int i = 0; i < xcb_get_property_value_length(reply.get()) / 4; ++i)
        out.append(data[i]);
    return out;
}

} // namespace vaxo::linux_platform
