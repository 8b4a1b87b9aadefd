#include "app/Cli.h"
#include "app/IslandAppDelegate.h"
#include "base/AppPaths.h"
#include "platform/PlatformServices.h"

#include <QDir>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QSGRendererInterface>

#include <cstdio>

namespace {

vaxo::CliFiles helpFiles(const vaxo::AppPaths &paths)
{
    const QString home = QDir::homePath();
    return {vaxo::Cli::tildePath(paths.sessions(), home), vaxo::Cli::tildePath(paths.face(), home)};
}

} // namespace

int main(int argc, char **argv)
{
    const vaxo::AppPaths paths = vaxo::AppPaths::standard();
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    // Answered before any toolkit start-up, so that it works without a display.
    if (const auto text = vaxo::Cli::response(arguments, QStringLiteral(VAXO_VERSION), helpFiles(paths))) {
        const QByteArray out = (*text + QLatin1Char('\n')).toUtf8();
        std::fwrite(out.constData(), 1, size_t(out.size()), stdout);
        return 0;
    }

    vaxo::PlatformServices::installLogging();
    // The software renderer redraws only what changed and keeps the resident size small.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("VAXO Island"));
    QGuiApplication::setApplicationVersion(QStringLiteral(VAXO_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("vaxo-island"));
    QGuiApplication::setQuitOnLastWindowClosed(false);

    vaxo::IslandAppDelegate delegate(paths);
    QObject::connect(&app, &QCoreApplication::aboutToQuit, &delegate,
                     &vaxo::IslandAppDelegate::applicationWillTerminate);
    delegate.applicationDidFinishLaunching();
    return app.exec();
}
