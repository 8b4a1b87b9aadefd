#include "platform/x11/XcbKeyboardMap.h"

#include <QByteArray>

#include <cstdlib>
#include <memory>

namespace vaxo::linux_platform {
namespace {

// The symbols of the modifier keys, left and right.
const QList<xcb_keysym_t> kAlt{0xffe9, 0xffea};
const QList<xcb_keysym_t> kSuper{0xffeb, 0xffec};

struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};

} // namespace

XcbKeyboardMap::XcbKeyboardMap(xcb_connection_t *connection)
{
    const xcb_setup_t *setup = xcb_get_setup(connection);
    m_minKeycode = setup->min_keycode;
    const auto count = quint8(setup->max_keycode - setup->min_keycode + 1);
    const auto keys = xcb_get_keyboard_mapping(connection, setup->min_keycode, count);
    const auto mods = xcb_get_modifier_mapping(connection);
    std::unique_ptr<xcb_get_keyboard_mapping_reply_t, FreeReply> keyReply(
        xcb_get_keyboard_mapping_reply(connection, keys, nullptr));
    std::unique_ptr<xcb_get_modifier_mapping_reply_t, FreeReply> modReply(
        xcb_get_modifier_mapping_reply(connection, mods, nullptr));
    if (keyReply) {
        m_symbolsPerKey = keyReply->keysyms_per_keycode;
        const xcb_keysym_t *symbols = xcb_get_keyboard_mapping_keysyms(keyReply.get());
        m_symbols = QList<xcb_keysym_t>(symbols, symbols + xcb_get_keyboard_mapping_keysyms_length(keyReply.get()));
    }
    if (modReply) {
        m_keysPerModifier = modReply->keycodes_per_modifier;
        const xcb_keycode_t *codes = xcb_get_modifier_mapping_keycodes(modReply.get());
        m_modifiers = QList<xcb_keycode_t>(codes, codes + xcb_get_modifier_mapping_keycodes_length(modReply.get()));
    }
}

bool XcbKeyboardMap::types(xcb_keycode_t keycode, const QList<xcb_keysym_t> &symbols) const
{
    const int first = (keycode - m_minKeycode) * m_symbolsPerKey;
    for (int i = first; i >= 0 && i < first + m_symbolsPerKey && i < m_symbols.size(); ++i)
        if (symbols.contains(m_symbols[i]))
            return true;
    return false;
}

xcb_keycode_t XcbKeyboardMap::keycodeFor(Qt::Key key) const
{
    // Letters, digits and the rest of Latin-1 have their code as their symbol, letters in lower case.
    if (key > 0xff || m_symbolsPerKey == 0)
        return 0;
    const QList<xcb_keysym_t> symbol{xcb_keysym_t(QChar(key).toLower().unicode())};
    const int keys = int(m_symbols.size() / m_symbolsPerKey);
    for (int k = 0; k < keys; ++k)
        if (types(xcb_keycode_t(m_minKeycode + k), symbol))
            return xcb_keycode_t(m_minKeycode + k);
    return 0;
}

quint16 XcbKeyboardMap::modifierOf(const QList<xcb_keysym_t> &symbols) const
{
    quint16 bits = 0;
    for (int i = 0; i < m_modifiers.size(); ++i)
        if (m_modifiers[i] != 0 && types(m_modifiers[i], symbols))
            bits |= quint16(1u << (i / m_keysPerModifier));
    return bits;
}

XcbKeyboardMap::Mask XcbKeyboardMap::maskFor(Qt::KeyboardModifiers modifiers) const
{
    Mask mask;
    if (modifiers & Qt::ShiftModifier)
        mask.bits |= XCB_MOD_MASK_SHIFT;
    if (modifiers & Qt::ControlModifier)
        mask.bits |= XCB_MOD_MASK_CONTROL;
    const auto add = [&](Qt::KeyboardModifier modifier, const QList<xcb_keysym_t> &symbols, const char *name) {
        if (!(modifiers & modifier))
            return;
        const quint16 bits = modifierOf(symbols);
        mask.bits |= bits;
        if (bits == 0 && mask.missing.isEmpty())
            mask.missing = QLatin1String(name);
    };
    add(Qt::AltModifier, kAlt, "Alt");
    add(Qt::MetaModifier, kSuper, "Super");
    return mask;
}

quint8 XcbKeyboardMap::keyboardExtensionEvent(xcb_connection_t *connection)
{
    const QByteArray name("XKEYBOARD");
    const auto cookie = xcb_query_extension(connection, quint16(name.size()), name.constData());
    std::unique_ptr<xcb_query_extension_reply_t, FreeReply> reply(
        xcb_query_extension_reply(connection, cookie, nullptr));
    return reply && reply->present ? reply->first_event : 0;
}

} // namespace vaxo::linux_platform
