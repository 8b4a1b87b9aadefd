#include "media/MediaScripts.h"

#include <QStringList>

namespace vaxo::MediaScripts {
namespace {

// The fields of the current track joined by the separator, after the player's own name.
QString playerScript(const QString &application, const QString &extraField)
{
    const QString sep = QStringLiteral(" & \"") + QChar(kFieldSeparator) + QStringLiteral("\" & ");
    QStringList fields{QStringLiteral("(name of current track)"), QStringLiteral("(artist of current track)"),
                       QStringLiteral("(player state as string)")};
    if (!extraField.isEmpty())
        fields << extraField;
    fields << QStringLiteral("(player position as string)")
           << QStringLiteral("((duration of current track) as string)");
    return QStringLiteral("tell application \"%1\"\n"
                          "  if player state is stopped then return \"\"\n"
                          "  return %2\n"
                          "end tell")
        .arg(application, fields.join(sep));
}

} // namespace

QString music()
{
    return playerScript(QStringLiteral("Music"), {});
}

QString spotify()
{
    return playerScript(QStringLiteral("Spotify"), QStringLiteral("(artwork url of current track)"));
}

QString chromeJavaScript()
{
    return QStringLiteral(
        "(function(){var m=navigator.mediaSession&&navigator.mediaSession.metadata;"
        "var v=document.querySelector('video')||document.querySelector('audio');if(!m&&!v)return '';var art='';"
        "if(m&&m.artwork&&m.artwork.length){art=m.artwork[m.artwork.length-1].src||'';}"
        "return JSON.stringify({t:(m&&m.title)||'',a:(m&&m.artist)||'',p:v?v.paused:true,art:art,"
        "e:v?v.currentTime:null,d:(v&&isFinite(v.duration))?v.duration:null});})()");
}

QString chrome()
{
    // YouTube Music, YouTube watch pages, SoundCloud and the Spotify web player, in this order.
    const QString head =
        QStringLiteral("tell application \"Google Chrome\"\n"
                       "  repeat with w in windows\n"
                       "    repeat with t in tabs of w\n"
                       "      set u to URL of t\n"
                       "      if u contains \"music.youtube.com\" or u contains \"youtube.com/watch\" or u contains "
                       "\"soundcloud.com\" or u contains \"open.spotify.com\" then\n"
                       "        try\n"
                       "          set r to execute t javascript \"");
    const QString tail = QStringLiteral("\"\n"
                                        "          if r is not \"\" then return \"JS:\" & r\n"
                                        "        on error\n"
                                        "          return \"TITLE:\" & (title of t)\n"
                                        "        end try\n"
                                        "        return \"TITLE:\" & (title of t)\n"
                                        "      end if\n"
                                        "    end repeat\n"
                                        "  end repeat\n"
                                        "  return \"\"\n"
                                        "end tell");
    return head + chromeJavaScript() + tail;
}

QString verb(MediaCommand command)
{
    switch (command) {
    case MediaCommand::PlayPause:
        return QStringLiteral("playpause");
    case MediaCommand::Next:
        return QStringLiteral("next track");
    case MediaCommand::Previous:
        return QStringLiteral("previous track");
    }
    return {};
}

QString command(const QString &application, MediaCommand command)
{
    return QStringLiteral("tell application \"%1\" to %2").arg(application, verb(command));
}

} // namespace vaxo::MediaScripts
