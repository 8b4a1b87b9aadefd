#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace vaxo::test {

// A private speech-dispatcher with the espeak-ng voices, reached on a socket of its own (address()).
// It speaks through ALSA into a file instead of a sound card: espeak-ng makes a line's sound whole
// before it plays it, and the file takes it at once. Ends with the object.
class PrivateSpeech {
public:
    PrivateSpeech();
    ~PrivateSpeech();

    // The service answers on its socket.
    bool ready() const;
    // For SPEECHD_ADDRESS.
    QString address() const { return QStringLiteral("unix_socket:") + socket(); }
    // Bytes of sound spoken so far.
    qint64 spoken() const;

private:
    QString socket() const { return m_dir.filePath(QStringLiteral("speechd.sock")); }

    QTemporaryDir m_dir;
    QProcess m_daemon;
};

} // namespace vaxo::test
