#include "app/AppPaths.h"
#include "app/Cli.h"
#include "app/IslandAppDelegate.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

namespace {

vaxo::CliFiles helpFiles()
{
    const vaxo::AppPaths paths = vaxo::AppPaths::standard();
    const QString home = QDir::homePath();
    return {vaxo::Cli::tildePath(paths.sessions(), home), vaxo::Cli::tildePath(paths.face(), home)};
}

} // namespace

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    // Answered before any toolkit start-up, so that it works without a display.
    if (const auto text = vaxo::Cli::response(arguments, QStringLiteral(VAXO_VERSION), helpFiles())) {
        const QByteArray out = (*text + QLatin1Char('\n')).toUtf8();
        std::fwrite(out.constData(), 1, size_t(out.size()), stdout);
        return 0;
    }

    QGuiApplication app(argc, argv);
    vaxo::IslandAppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    QObject::connect(&app, &QCoreApplication::aboutToQuit, &delegate, &vaxo::IslandAppDelegate::applicationWillTerminate);
    return app.exec();
}
