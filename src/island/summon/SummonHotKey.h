#pragma once

#include "platform/GlobalHotKey.h"

#include <QObject>

#include <functional>
#include <optional>

namespace vaxo {

// The desktop-wide key that summons Vaxo (Alt+Super+I). Holds the key for the life of the program and
// takes it again when the keyboard's map changes. A key it cannot take is logged, and the program runs
// on without it. Main thread only.
class SummonHotKey : public QObject {
    Q_OBJECT
public:
    static constexpr Qt::Key kKey = Qt::Key_I;
    static constexpr Qt::KeyboardModifiers kModifiers{Qt::AltModifier | Qt::MetaModifier};

    explicit SummonHotKey(GlobalHotKey &keys, QObject *parent = nullptr);

    // What a press does, run on the main thread after the press's event is over.
    void setOnPress(std::function<void()> action) { m_onPress = std::move(action); }
    // (Re)takes the key; false, with a log line, when it cannot.
    bool registerKey(Qt::Key key, Qt::KeyboardModifiers modifiers);

    // The log line for a grab that failed: the window system's status, or the reason it cannot be
    // taken on this keyboard; empty for a grab that succeeded.
    static QString failureLine(const GlobalHotKey::Grab &grab);

private:
    GlobalHotKey &m_keys;
    std::function<void()> m_onPress;
    struct Combination {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    };
    std::optional<Combination> m_registered;
};

} // namespace vaxo
