#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace vaxo::test {

// A real terminal window (xterm) that runs a command on a tty of its own, for tests that bring
// terminals forward; it ends with the object. Needs an X server and xdotool.
class Xterm {
public:
    // command runs in the terminal once its tty is known; the default only waits.
    explicit Xterm(const QString &command = QStringLiteral("exec sleep 600"));
    ~Xterm();

    // Polled by the test until true: the tty is known and the window is up.
    bool ready();
    QString tty() const { return m_tty; }
    quint32 window() const { return m_window; }

    // The window that the window manager calls active, 0 when none.
    static quint32 activeWindow();

private:
    QTemporaryDir m_dir;
    QProcess m_process;
    QString m_tty;
    quint32 m_window = 0;
};

} // namespace vaxo::test
