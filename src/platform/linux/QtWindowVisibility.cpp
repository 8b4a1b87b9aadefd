#include "platform/linux/QtWindowVisibility.h"

#include <QGuiApplication>
#include <QWindow>

namespace vaxo::linux_platform {

QtWindowVisibility::QtWindowVisibility(QObject *parent) : WindowVisibilitySource(parent)
{
    auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    if (!app)
        return;
    app->installEventFilter(this);
    connect(app, &QGuiApplication::focusWindowChanged, this, &QtWindowVisibility::announce);
    connect(app, &QGuiApplication::applicationStateChanged, this, &QtWindowVisibility::announce);
}

QList<WindowVisibilitySource::Window> QtWindowVisibility::windows() const
{
    QList<Window> list;
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return list;
    for (const QWindow *w : QGuiApplication::topLevelWindows()) {
        const Qt::WindowType type = w->type();
        const bool ordinary = (type == Qt::Window || type == Qt::Dialog) && !(w->flags() & Qt::WindowStaysOnTopHint);
        list.append({w->isVisible(), bool(w->windowStates() & Qt::WindowMinimized), ordinary, w->isExposed(),
                     double(w->width()), double(w->height())});
    }
    return list;
}

bool QtWindowVisibility::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Close:
    case QEvent::Expose:
    case QEvent::WindowStateChange:
        if (watched->isWindowType())
            announce();
        break;
    default:
        break;
    }
    return false;
}

void QtWindowVisibility::announce()
{
    if (m_pending)
        return;
    m_pending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_pending = false;
            emit windowsChanged();
        },
        Qt::QueuedConnection);
}

} // namespace vaxo::linux_platform
