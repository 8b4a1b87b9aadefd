#pragma once

#include <QList>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace vaxo::test {

// A private session bus (dbus-daemon) with real MPRIS players on it: mpv with its MPRIS plugin,
// looping a generated tone, "Test Tone" by "The Sines", 60 s long, with a cover.png beside it. Every
// process it starts ends with it.
class PrivatePlayers {
public:
    static constexpr char kMpv[] = "org.mpris.MediaPlayer2.mpv"; // the first player's name

    PrivatePlayers();
    ~PrivatePlayers();

    // The bus is up and the tone is written.
    bool ready() const { return !m_address.isEmpty() && m_toneWritten; }
    QString address() const { return m_address; }
    QString folder() const { return m_dir.path(); }
    QString cover() const { return m_dir.path() + QStringLiteral("/cover.png"); }

    // A new mpv playing the tone (not yet on the bus when this returns).
    QProcess *startMpv();
    // The bus name an mpv player takes: kMpv for the first, kMpv + ".instance<pid>" for the others.
    static QString busName(const QProcess &mpv, bool first);
    // Freezes a player (it keeps its bus name and answers nothing) or lets it go on.
    static void freeze(const QProcess &mpv, bool frozen);
    void end(QProcess *mpv);

private:
    QTemporaryDir m_dir;
    QProcess m_daemon;
    QString m_address;
    bool m_toneWritten = false;
    QList<QProcess *> m_players;
};

} // namespace vaxo::test
