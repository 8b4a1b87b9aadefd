#include "platform/linux/LinuxTerminalFocus.h"
#include "platform/x11/X11WindowActivation.h"

#include "Xterm.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

using namespace vaxo;
using linux_platform::LinuxTerminalFocus;
using test::Xterm;

namespace {

bool focusTty(const QString &tty)
{
    return LinuxTerminalFocus::focusTty(tty, &linux_platform::X11WindowActivation::activateWindowOf);
}

// A tmux server of the test's own, on a socket no other tmux uses.
struct Tmux {
    const QString socket = QStringLiteral("vaxo-focus-%1").arg(QCoreApplication::applicationPid());
    ~Tmux() { run({QStringLiteral("kill-server")}); }
    QString run(const QStringList &arguments) const
    {
        QProcess tmux;
        tmux.start(QStringLiteral("tmux"),
                   QStringList{QStringLiteral("-L"), socket, QStringLiteral("-f"), QStringLiteral("/dev/null")} +
                       arguments);
        tmux.waitForFinished();
        return QString::fromUtf8(tmux.readAllStandardOutput()).trimmed();
    }
    // "<pane_active> <window_active>" of the pane on tty.
    QString stateOf(const QString &tty) const
    {
        for (const QString &line :
             run({"list-panes", "-a", "-F", "#{pane_tty} #{pane_active} #{window_active}"}).split('\n'))
            if (line.startsWith(tty + QLatin1Char(' ')))
                return line.mid(tty.size() + 1);
        return {};
    }
};

} // namespace

// Terminal windows and tmux panes brought forward for real: xterm under a window manager, a private
// tmux server.
class TerminalFocusTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        if (qEnvironmentVariableIsEmpty("DISPLAY"))
            QSKIP("needs an X server with a window manager");
    }

    void unknownTtysAreIgnored()
    {
        QVERIFY(!focusTty(QString()));
        QVERIFY(!focusTty(QStringLiteral("/dev/tty1")));
        QVERIFY(!focusTty(QStringLiteral("/dev/pts/99999")));
        LinuxTerminalFocus focus(&linux_platform::X11WindowActivation::activateWindowOf);
        focus.focus(QString()); // no tty: nothing to do, nothing happens
    }

    void theTerminalAndThePaneOfTheTtyComeForward()
    {
        Tmux tmux;
        tmux.run({"new-session", "-d", "-s", "work", "-x", "80", "-y", "24"});
        const QString hidden = tmux.run({"display-message", "-p", "-t", "work", "#{pane_tty}"});
        tmux.run({"split-window", "-t", "work"});
        tmux.run({"new-window", "-t", "work"});
        QCOMPARE(tmux.stateOf(hidden), QStringLiteral("0 0"));

        // Without a client the pane is selected all the same; there is no window to bring forward.
        QVERIFY(!focusTty(hidden));
        QCOMPARE(tmux.stateOf(hidden), QStringLiteral("1 1"));

        // Two terminals, each on a tty of its own, and a third that shows the tmux session.
        tmux.run({"new-window", "-t", "work"});
        Xterm first, second;
        Xterm client(QStringLiteral("exec tmux -L %1 -f /dev/null attach -t work").arg(tmux.socket));
        QTRY_VERIFY_WITH_TIMEOUT(first.ready() && second.ready() && client.ready(), 20000);
        QVERIFY(first.tty() != second.tty());
        QTRY_VERIFY_WITH_TIMEOUT(!tmux.run({"list-clients"}).isEmpty(), 10000);
        QVERIFY(focusTty(first.tty()));
        QTRY_COMPARE_WITH_TIMEOUT(Xterm::activeWindow(), first.window(), 10000);

        // As the island asks: off its thread.
        LinuxTerminalFocus focus(&linux_platform::X11WindowActivation::activateWindowOf);
        focus.focus(second.tty());
        QTRY_COMPARE_WITH_TIMEOUT(Xterm::activeWindow(), second.window(), 10000);

        QVERIFY(focusTty(hidden));
        QCOMPARE(tmux.stateOf(hidden), QStringLiteral("1 1"));
        QTRY_COMPARE_WITH_TIMEOUT(Xterm::activeWindow(), client.window(), 10000);
    }
};

QTEST_GUILESS_MAIN(TerminalFocusTest)
#include "TerminalFocusTest.moc"
