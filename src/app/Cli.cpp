#include "app/Cli.h"

#include <QSet>

namespace vaxo {
namespace {

// The text after the version line. "%1" and "%2" take this platform's folders.
const char kUsage[] = "\n"
                      "Your coding agents, in the notch.\n"
                      "\n"
                      "USAGE\n"
                      "  VAXO Island [--help] [--version]\n"
                      "\n"
                      "There are no other options. The island has no window and no Dock icon —\n"
                      "it hangs off the notch and everything you can change lives in its own\n"
                      "settings, behind the gear in the expanded card. Quit it from there too.\n"
                      "\n"
                      "SUMMON\n"
                      "  Alt+Super+I    show Vaxo on her own, under the notch; again to dismiss\n"
                      "\n"
                      "ENVIRONMENT\n"
                      "  VAXO_NO_ANIM=1          freeze every animation. Also the fastest way to\n"
                      "                          attribute CPU: idle cost is ~0.7% with the\n"
                      "                          island at rest and ~0.1% with this set.\n"
                      "  VAXO_ACTIVITY_DEBUG=1   log each animation-gate transition and which\n"
                      "                          input is holding it open.\n"
                      "\n"
                      "FILES\n"
                      "  %1\n"
                      "      one JSON file per agent session, written by the Claude Code hook.\n"
                      "  %2\n"
                      "      drop your own artwork here; yours wins over the bundled art, per\n"
                      "      mood.";

bool anyOf(const QSet<QString> &args, std::initializer_list<const char *> words)
{
    for (const char *word : words)
        if (args.contains(QString::fromLatin1(word)))
            return true;
    return false;
}

} // namespace

QString Cli::versionLine(const std::optional<QString> &version)
{
    return version ? QStringLiteral("VAXO Island ") + *version
                   : QStringLiteral("VAXO Island (development build, no bundle)");
}

QString Cli::usage(const std::optional<QString> &version, const CliFiles &files)
{
    return versionLine(version) + QString::fromUtf8(kUsage).arg(files.sessions, files.face);
}

std::optional<QString> Cli::response(const QStringList &arguments, const std::optional<QString> &version,
                                     const CliFiles &files)
{
    const QSet<QString> args(arguments.begin(), arguments.end());
    if (anyOf(args, {"-h", "--help", "help"}))
        return usage(version, files);
    if (anyOf(args, {"-v", "--version", "--build"}))
        return versionLine(version);
    return std::nullopt;
}

QString Cli::tildePath(const QString &path, const QString &home)
{
    if (!home.isEmpty() && (path == home || path.startsWith(home + QLatin1Char('/'))))
        return QLatin1Char('~') + path.mid(home.size());
    return path;
}

} // namespace vaxo
