#pragma once

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QObject>

namespace vaxo::linux_platform {

// Runs handle(call) once the call has an answer, an error or has run out of time, on context's
// thread; never when context is gone by then.
template <typename Handle> void whenFinished(const QDBusPendingCall &call, QObject *context, Handle handle)
{
    auto *watcher = new QDBusPendingCallWatcher(call, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, handle] {
        watcher->deleteLater();
        handle(*watcher);
    });
}

} // namespace vaxo::linux_platform
