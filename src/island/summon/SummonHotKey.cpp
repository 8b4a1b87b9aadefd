#include "island/summon/SummonHotKey.h"

#include <QDebug>

namespace vaxo {

SummonHotKey::SummonHotKey(GlobalHotKey &keys, QObject *parent) : QObject(parent), m_keys(keys)
{
    connect(&m_keys, &GlobalHotKey::pressed, this, [this] {
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (m_onPress)
                    m_onPress();
            },
            Qt::QueuedConnection);
    });
    connect(&m_keys, &GlobalHotKey::keyboardChanged, this, [this] {
        if (m_registered)
            registerKey(m_registered->key, m_registered->modifiers);
    });
}

bool SummonHotKey::registerKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    m_registered = Combination{key, modifiers};
    const GlobalHotKey::Grab grab = m_keys.grab(key, modifiers);
    if (grab.taken())
        return true;
    qWarning().noquote() << failureLine(grab);
    return false;
}

QString SummonHotKey::failureLine(const GlobalHotKey::Grab &grab)
{
    if (grab.taken())
        return {};
    if (!grab.problem.isEmpty())
        return QStringLiteral("[summon] could not register hotkey (%1)").arg(grab.problem);
    return QStringLiteral("[summon] could not register hotkey (status %1); another app may own it").arg(grab.status);
}

} // namespace vaxo
