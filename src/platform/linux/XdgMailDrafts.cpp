#include "platform/linux/XdgMailDrafts.h"

#include <QDesktopServices>
#include <QProcess>

namespace vaxo::linux_platform {

QString XdgMailDrafts::defaultHandler()
{
    QProcess query;
    query.setStandardErrorFile(QProcess::nullDevice());
    query.start(QStringLiteral("xdg-mime"),
                {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("x-scheme-handler/mailto")});
    if (!query.waitForFinished(2000) || query.exitCode() != 0) {
        query.kill();
        return {};
    }
    return QString::fromUtf8(query.readAllStandardOutput()).trimmed();
}

bool XdgMailDrafts::open(const QUrl &mailto)
{
    // xdg-open starts whatever it finds and reports success either way; asking first for the default
    // mail program tells whether anybody will take the draft.
    return !defaultHandler().isEmpty() && QDesktopServices::openUrl(mailto);
}

} // namespace vaxo::linux_platform
