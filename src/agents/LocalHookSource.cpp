#include "agents/LocalHookSource.h"

#include "agents/SessionLiveness.h"
#include "base/Clock.h"
#include "base/Timer.h"
#include "platform/FolderWatcher.h"

#include <QDebug>
#include <QDir>
#include <QFile>

namespace vaxo {

LocalHookSource::LocalHookSource(QString directory, Clock &clock, FolderWatcher *watcher, SessionLiveness *liveness,
                                 QObject *parent)
    : QObject(parent), m_directory(std::move(directory)), m_clock(clock), m_watcher(watcher), m_liveness(liveness),
      m_coalesce(clock.createTimer(this))
{
    m_watcher->setParent(this);
    connect(m_watcher, &FolderWatcher::changed, this, &LocalHookSource::scheduleReload);
    if (m_liveness) {
        m_liveness->setParent(this);
        connect(m_liveness, &SessionLiveness::statusChanged, this, &LocalHookSource::scheduleReload);
    }
    connect(m_coalesce, &Timer::timeout, this, &LocalHookSource::reload);
}

void LocalHookSource::start(Callback onChange)
{
    m_onChange = std::move(onChange);
    m_stopped = false;
    prepareDirectory();
    reload();
    if (!m_watcher->watch(directory()))
        qWarning().noquote() << QStringLiteral("[island] cannot watch %1").arg(directory());
}

void LocalHookSource::stop()
{
    m_stopped = true;
    m_coalesce->stop();
    m_watcher->cancel();
    if (m_liveness)
        m_liveness->stop();
}

void LocalHookSource::scheduleReload()
{
    if (!m_stopped)
        m_coalesce->start(kCoalesceDelay);
}

void LocalHookSource::reload()
{
    if (m_stopped)
        return;
    std::optional<QList<AgentSession>> loaded = m_directory.load(m_clock.now(), maxAge);
    if (loaded && m_liveness)
        m_liveness->apply(*loaded);
    if (loaded && *loaded != m_sessions) {
        m_sessions = std::move(*loaded);
        if (m_onChange)
            m_onChange(m_sessions);
    }
    emit reloaded();
}

void LocalHookSource::prepareDirectory()
{
    QDir().mkpath(directory());
    QFile::setPermissions(directory(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString marker = directory() + QStringLiteral("/.metadata_never_index");
    if (!QFile::exists(marker)) {
        QFile file(marker);
        file.open(QIODevice::WriteOnly);
    }
}

} // namespace vaxo
