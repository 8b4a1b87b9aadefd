#pragma once

#include <QList>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace vaxo::linux_platform {

// A reply of the X server, freed with the owner.
template <typename T> using XcbReply = std::unique_ptr<T, decltype(&std::free)>;

// The atom of name, made when the server does not know it yet; XCB_ATOM_NONE when the server fails.
quint32 xcbAtom(xcb_connection_t *c, const char *name);

// The 32-bit values of a window's property (windows, atoms, cardinals); empty when it is missing or of
// another format.
QList<quint32> xcbValues(xcb_connection_t *c, quint32 window, quint32 property, quint32 type);

} // namespace vaxo::linux_platform
