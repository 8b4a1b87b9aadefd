#include "PrivatePlayers.h"

#include <QFile>

#include <csignal>

namespace vaxo::test {

PrivatePlayers::PrivatePlayers()
{
    m_daemon.start(QStringLiteral("dbus-daemon"), {"--session", "--nofork", "--print-address=1"});
    if (m_daemon.waitForReadyRead(10000))
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    m_toneWritten =
        QProcess::execute(QStringLiteral("sox"),
                          {"-n", "-r", "8000", "-c", "1", "--comment", "TITLE=Test Tone", "--add-comment",
                           "ARTIST=The Sines", m_dir.filePath("tone.ogg"), "synth", "60", "sine", "440"}) == 0;
    // A 1x1 PNG: mpv offers a cover.png beside the file as the track's art.
    QFile cover(this->cover());
    if (cover.open(QIODevice::WriteOnly))
        cover.write(QByteArray::fromHex("89504e470d0a1a0a0000000d49484452000000010000000108060000001f15c4890000000d49"
                                        "44415478da63f8ffff3f0005fe02fea7d9a0e50000000049454e44ae426082"));
}

PrivatePlayers::~PrivatePlayers()
{
    while (!m_players.isEmpty())
        end(m_players.first());
    m_daemon.kill();
    m_daemon.waitForFinished();
}

QProcess *PrivatePlayers::startMpv()
{
    auto *mpv = new QProcess;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_address);
    mpv->setProcessEnvironment(env);
    mpv->start(QStringLiteral("mpv"),
               {"--no-video", "--ao=null", "--no-terminal", "--loop-file=inf", m_dir.filePath("tone.ogg")});
    m_players << mpv;
    return mpv;
}

QString PrivatePlayers::busName(const QProcess &mpv, bool first)
{
    const QString name = QString::fromLatin1(kMpv);
    return first ? name : name + QStringLiteral(".instance") + QString::number(mpv.processId());
}

void PrivatePlayers::freeze(const QProcess &mpv, bool frozen)
{
    if (mpv.processId() > 0) // 0 would signal our own process group
        ::kill(pid_t(mpv.processId()), frozen ? SIGSTOP : SIGCONT);
}

void PrivatePlayers::end(QProcess *mpv)
{
    m_players.removeAll(mpv);
    freeze(*mpv, false);
    mpv->kill();
    mpv->waitForFinished();
    delete mpv;
}

} // namespace vaxo::test
