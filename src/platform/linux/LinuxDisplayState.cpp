#include "platform/linux/LinuxDisplayState.h"

#include "login1_manager.h"
#include "login1_session.h"
#include "screensaver.h"

#include <unistd.h>

namespace vaxo::linux_platform {
namespace {

const QString kLogind = QStringLiteral("org.freedesktop.login1");
// Looking up our session happens once, when the gate is first used; never hold the program long.
constexpr int kLookupTimeoutMs = 1000;

// Our logind session: the one named by XDG_SESSION_ID, else the one our process belongs to.
QString findSession(OrgFreedesktopLogin1ManagerInterface &manager)
{
    const QString id = qEnvironmentVariable("XDG_SESSION_ID");
    if (!id.isEmpty()) {
        QDBusPendingReply<QDBusObjectPath> reply = manager.GetSession(id);
        reply.waitForFinished();
        if (reply.isValid())
            return reply.value().path();
    }
    QDBusPendingReply<QDBusObjectPath> reply = manager.GetSessionByPID(uint(getpid()));
    reply.waitForFinished();
    return reply.isValid() ? reply.value().path() : QString();
}

} // namespace

LinuxDisplayState::LinuxDisplayState(const QDBusConnection &system, const QDBusConnection &session, QObject *parent)
    : DisplayStateSource(parent)
{
    if (system.isConnected())
        followLogind(system);
    if (session.isConnected())
        followScreenSaver(session);
}

void LinuxDisplayState::followLogind(QDBusConnection system)
{
    auto *manager =
        new OrgFreedesktopLogin1ManagerInterface(kLogind, QStringLiteral("/org/freedesktop/login1"), system, this);
    manager->setTimeout(kLookupTimeoutMs);
    // The machine is about to sleep (true) or has woken (false).
    connect(manager, &OrgFreedesktopLogin1ManagerInterface::PrepareForSleep, this, &LinuxDisplayState::report);

    m_sessionPath = findSession(*manager);
    if (m_sessionPath.isEmpty())
        return;
    auto *session = new OrgFreedesktopLogin1SessionInterface(kLogind, m_sessionPath, system, this);
    session->setTimeout(kLookupTimeoutMs);
    // A program started on a locked screen starts with the display lost, not at the first change.
    m_lost = m_lost || session->lockedHint();
    connect(session, &OrgFreedesktopLogin1SessionInterface::Lock, this, &DisplayStateSource::displayLost);
    connect(session, &OrgFreedesktopLogin1SessionInterface::Unlock, this, &DisplayStateSource::displayBack);
    system.connect(kLogind, m_sessionPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                   QStringLiteral("PropertiesChanged"), this,
                   SLOT(onSessionProperties(QString, QVariantMap, QStringList)));
}

void LinuxDisplayState::followScreenSaver(QDBusConnection session)
{
    auto *saver = new OrgFreedesktopScreenSaverInterface(QStringLiteral("org.freedesktop.ScreenSaver"),
                                                         QStringLiteral("/org/freedesktop/ScreenSaver"), session, this);
    saver->setTimeout(kLookupTimeoutMs);
    QDBusPendingReply<bool> active = saver->GetActive();
    active.waitForFinished();
    m_lost = m_lost || (active.isValid() && active.value());
    connect(saver, &OrgFreedesktopScreenSaverInterface::ActiveChanged, this, &LinuxDisplayState::report);
}

void LinuxDisplayState::report(bool lost)
{
    m_lost = lost;
    if (lost)
        emit displayLost();
    else
        emit displayBack();
}

void LinuxDisplayState::onSessionProperties(const QString &interface, const QVariantMap &changed, const QStringList &)
{
    const auto locked = changed.constFind(QStringLiteral("LockedHint"));
    if (interface != QLatin1String("org.freedesktop.login1.Session") || locked == changed.constEnd())
        return;
    report(locked->toBool());
}

} // namespace vaxo::linux_platform
