#include "platform/linux/SystemLog.h"

#include <QString>

#include <cstdio>
#include <syslog.h>
#include <unistd.h>

namespace vaxo::linux_platform {
namespace {

bool g_toTerminal = false;

int priorityOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return LOG_DEBUG;
    case QtInfoMsg:
        return LOG_INFO;
    case QtWarningMsg:
        return LOG_WARNING;
    case QtCriticalMsg:
        return LOG_ERR;
    case QtFatalMsg:
        return LOG_CRIT;
    }
    return LOG_INFO;
}

void handler(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    const QByteArray text = message.toUtf8();
    syslog(priorityOf(type), "%s", text.constData());
    if (g_toTerminal)
        std::fprintf(stderr, "%s\n", text.constData());
}

} // namespace

void installSystemLog()
{
    g_toTerminal = isatty(STDERR_FILENO) == 1;
    openlog("vaxo-island", LOG_PID, LOG_USER);
    qInstallMessageHandler(handler);
}

} // namespace vaxo::linux_platform
