#include "agents/LocalHookSource.h"

#include "app/Clock.h"
#include "app/Timer.h"
#include "platform/FolderWatcher.h"

#include <QDebug>
#include <QDir>
#include <QFile>

namespace vaxo {

LocalHookSource::LocalHookSource(QString directory, Clock &clock, FolderWatcher *watcher, QObject *parent)
    : QObject(parent), m_directory(std::move(directory)), m_clock(clock), m_watcher(watcher),
      m_coalesce(clock.createTimer(this))
{
    m_watcher->setParent(this);
    connect(m_watcher, &FolderWatcher::changed, this, &LocalHookSource::scheduleReload);
    connect(m_coalesce, &Timer::timeout, this, &LocalHookSource::reload);
}

void LocalHookSource::start(Callback onChange)
{
    m_onChange = std::move(onChange);
    m_stopped = false;
    prepareDirectory();
    reload();
    if (!m_watcher->watch(m_directory))
        qWarning().noquote() << QStringLiteral("[island] cannot watch %1").arg(m_directory);
}

void LocalHookSource::stop()
{
    m_stopped = true;
    m_coalesce->stop();
    m_watcher->cancel();
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
    std::optional<QList<AgentSession>> loaded = SessionDirectory::load(m_directory, m_clock.now(), maxAge);
    if (loaded && *loaded != m_sessions) {
        m_sessions = std::move(*loaded);
        if (m_onChange)
            m_onChange(m_sessions);
    }
    emit reloaded();
}

void LocalHookSource::prepareDirectory()
{
    QDir().mkpath(m_directory);
    QFile::setPermissions(m_directory, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString marker = m_directory + QStringLiteral("/.metadata_never_index");
    if (!QFile::exists(marker)) {
        QFile file(marker);
        file.open(QIODevice::WriteOnly);
    }
}

} // namespace vaxo
