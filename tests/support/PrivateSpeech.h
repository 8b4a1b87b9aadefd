#pragma once

#include "TempHome.h"

#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QtCore/qtestsupport_core.h>

namespace vaxo::test {

// A private speech-dispatcher with the espeak-ng voices, reached on a socket of its own (address()).
// It speaks through ALSA into a file instead of a sound card: espeak-ng makes a line's sound whole
// before it plays it, and the file takes it at once. Ends with the object.
class PrivateSpeech {
public:
    PrivateSpeech()
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
    ~PrivateSpeech()
    {
        m_daemon.terminate();
        if (!m_daemon.waitForFinished(10000))
            m_daemon.kill();
        m_daemon.waitForFinished();
    }

    // The service answers on its socket.
    bool ready() const { return m_daemon.state() == QProcess::Running && QFileInfo::exists(socket()); }
    // For SPEECHD_ADDRESS.
    QString address() const { return QStringLiteral("unix_socket:") + socket(); }
    // Bytes of sound spoken so far.
    qint64 spoken() const { return QFileInfo(m_dir.filePath(QStringLiteral("spoken.raw"))).size(); }

private:
    QString socket() const { return m_dir.filePath(QStringLiteral("speechd.sock")); }

    QTemporaryDir m_dir;
    QProcess m_daemon;
};

} // namespace vaxo::test
