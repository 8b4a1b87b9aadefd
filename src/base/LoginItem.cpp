#include "base/LoginItem.h"

#include "platform/LoginRegistration.h"

#include <QDebug>

namespace vaxo {

LoginItem::LoginItem(LoginRegistration &registration, QObject *parent) : QObject(parent), m_registration(registration)
{
    refresh();
}

QString LoginItem::label() const
{
    return QStringLiteral("Launch at login");
}

void LoginItem::refresh()
{
    const bool enabled = m_registration.enabled();
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    emit enabledChanged();
}

void LoginItem::toggle()
{
    const auto failure = m_registration.enabled() ? m_registration.disable() : m_registration.enable();
    if (failure)
        qWarning().noquote() << QStringLiteral("[island] login item: %1").arg(*failure);
    refresh();
}

} // namespace vaxo
