#include "PrivateSpeech.h"

#include "TempHome.h"

#include <QFileInfo>
#include <QtCore/qtestsupport_core.h>

namespace vaxo::test {

PrivateSpeech::PrivateSpeech()
{
    const QString dir = m_dir.path();
    TempHome::write(dir + "/conf/speechd.conf", "AudioOutputMethod \"alsa\"\n"
                                                "DefaultModule espeak-ng\n"
                                                "AddModule \"espeak-ng\" \"sd_espeak-ng\" \"espeak-ng.conf\"\n"
                                                "LogLevel 1\n");
    TempHome::write(dir + "/conf/modules/espeak-ng.conf", "");
    TempHome::write(dir + "/.asoundrc", "pcm.!default {\n  type file\n  slave.pcm \"null\"\n  file \"" +
                                            (dir + "/spoken.raw").toUtf8() + "\"\n  format \"raw\"\n}\n");
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("HOME"), dir);
    m_daemon.setProcessEnvironment(env);
    m_daemon.setStandardOutputFile(QProcess::nullDevice());
    m_daemon.setStandardErrorFile(QProcess::nullDevice());
    m_daemon.start(QStringLiteral("speech-dispatcher"),
                   {"-s", "-t", "0", "-C", dir + "/conf", "-S", socket(), "-L", dir});
    (void)QTest::qWaitFor([this] { return ready() || m_daemon.state() == QProcess::NotRunning; }, 20000);
}

PrivateSpeech::~PrivateSpeech()
{
    m_daemon.terminate();
    if (!m_daemon.waitForFinished(10000))
        m_daemon.kill();
    m_daemon.waitForFinished();
}

bool PrivateSpeech::ready() const
{
    return m_daemon.state() == QProcess::Running && QFileInfo(socket()).exists();
}

qint64 PrivateSpeech::spoken() const
{
    return QFileInfo(m_dir.filePath(QStringLiteral("spoken.raw"))).size();
}

} // namespace vaxo::test
