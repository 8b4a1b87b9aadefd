#pragma once

#include <QObject>

namespace vaxo {

class LoginRegistration;

// The "Launch at login" switch of the settings card. It shows the system's record as it is each time
// the card reads it (refresh), so that a change made elsewhere shows too. Main thread only.
class LoginItem : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool enabled READ enabled NOTIFY enabledChanged)
    Q_PROPERTY(QString label READ label CONSTANT)

public:
    // registration must outlive the item.
    explicit LoginItem(LoginRegistration &registration, QObject *parent = nullptr);

    bool enabled() const { return m_enabled; }
    QString label() const;

    // Reads the record again.
    Q_INVOKABLE void refresh();
    // Switches launch at login off when it is on, else on. A failure is logged, never shown: the switch
    // then shows what the record says.
    Q_INVOKABLE void toggle();

signals:
    void enabledChanged();

private:
    LoginRegistration &m_registration;
    bool m_enabled = false;
};

} // namespace vaxo
