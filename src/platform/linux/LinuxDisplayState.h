#pragma once

#include "platform/DisplayStateSource.h"

#include <QDBusConnection>
#include <QVariantMap>

namespace vaxo::linux_platform {

// Sleep, wake, lock and unlock from the desktop's buses: logind's PrepareForSleep and the session's
// Lock, Unlock and LockedHint on the system bus, the screen saver's ActiveChanged on the session bus.
// A bus or service that is missing (or appears later) reports nothing until it is there; no error is
// ever raised.
class LinuxDisplayState final : public DisplayStateSource {
    Q_OBJECT
public:
    LinuxDisplayState(const QDBusConnection &system, const QDBusConnection &session, QObject *parent = nullptr);

    // The logind session whose locks are followed; empty when logind did not name one.
    QString sessionPath() const { return m_sessionPath; }
    // Locked or screen saver active, as read at creation and followed since.
    bool isLost() const override { return m_lost; }

private slots:
    void report(bool lost);
    void onSessionProperties(const QString &interface, const QVariantMap &changed, const QStringList &invalidated);

private:
    void followLogind(QDBusConnection system);
    void followScreenSaver(QDBusConnection session);

    QString m_sessionPath;
    bool m_lost = false;
};

} // namespace vaxo::linux_platform
