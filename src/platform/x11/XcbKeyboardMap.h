#pragma once

#include <QList>
#include <QString>
#include <Qt>

#include <xcb/xcb.h>

namespace vaxo::linux_platform {

// The server's keyboard map as it is now: which key code types a key, and which modifier bits Alt,
// Super and Num Lock sit on.
class XcbKeyboardMap {
public:
    explicit XcbKeyboardMap(xcb_connection_t *connection);

    struct Mask {
        quint16 bits = 0;
        QString missing; // the first of the modifiers asked for that no modifier bit carries
    };

    // The first key code whose symbols include key's (a letter, digit or Latin-1 key); 0 for none.
    xcb_keycode_t keycodeFor(Qt::Key key) const;
    Mask maskFor(Qt::KeyboardModifiers modifiers) const;
    quint16 numLockMask() const { return modifierOf({0xff7f}); }

    // The keyboard extension's event code, 0 when the server lacks it.
    static quint8 keyboardExtensionEvent(xcb_connection_t *connection);

private:
    // The bits of the modifiers that a key with one of these symbols drives.
    quint16 modifierOf(const QList<xcb_keysym_t> &symbols) const;
    bool types(xcb_keycode_t keycode, const QList<xcb_keysym_t> &symbols) const;

    xcb_keycode_t m_minKeycode = 0;
    int m_symbolsPerKey = 0;
    QList<xcb_keysym_t> m_symbols; // m_symbolsPerKey per key code from m_minKeycode
    int m_keysPerModifier = 0;
    QList<xcb_keycode_t> m_modifiers; // m_keysPerModifier per modifier bit, Shift first
};

} // namespace vaxo::linux_platform
