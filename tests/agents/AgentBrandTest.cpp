#include "agents/AgentBrand.h"
#include "agents/TabSelectionScript.h"
#include "platform/InstalledApps.h"
#include "platform/TerminalPanes.h"

#include "TestTable.h"

#include <QHash>
#include <QTest>

using namespace vaxo;

namespace {

struct Apps final : InstalledApps {
    QHash<QString, QString> icons;
    std::optional<QString> icon(const QString &id) const override
    {
        return icons.contains(id) ? std::optional(icons.value(id)) : std::nullopt;
    }
};

} // namespace

// Who made each agent, and how its terminal's tab or pane is found.
class AgentBrandTest : public QObject {
    Q_OBJECT
private slots:
    void brands_data()
    {
        QTest::addColumn<QByteArray>("agent");
        QTest::addColumn<QByteArray>("display");
        QTest::addColumn<QByteArray>("symbol");
        QTest::addColumn<QByteArray>("tint");
        test::rows(R"(
claude-code  | claude-code     | Claude          | sparkle                                 | #ffd97847
claude       | claude          | Claude          | terminal.fill                           | #b3ffffff
codex        | codex           | Codex           | chevron.left.forwardslash.chevron.right | #ff59d9a6
antigravity  | antigravity     | Antigravity     | arrow.up.circle.fill                    | #ff73a6ff
cursor       | cursor          | Cursor          | cursorarrow.rays                        | #ffbfbfcc
other words  | open code AGENT | Open Code Agent | terminal.fill                           | #b3ffffff
case counts  | Codex           | Codex           | terminal.fill                           | #b3ffffff
empty        |                 |                 | terminal.fill                           | #b3ffffff
)");
    }
    void brands()
    {
        QFETCH(QByteArray, agent);
        QFETCH(QByteArray, display);
        QFETCH(QByteArray, symbol);
        QFETCH(QByteArray, tint);
        QCOMPARE(AgentBrand::display(agent), QString::fromUtf8(display));
        QCOMPARE(AgentBrand::symbol(agent), QString::fromUtf8(symbol));
        QCOMPARE(AgentBrand::tint(agent).hex(), QString::fromUtf8(tint));
    }

    void appIconIsTheFirstInstalledApplication()
    {
        Apps apps;
        QCOMPARE(AgentBrand::appIcon("codex", apps), std::nullopt);
        apps.icons.insert("com.openai.chat", "chat-icon");
        QCOMPARE(AgentBrand::appIcon("codex", apps), QStringLiteral("chat-icon"));
        apps.icons.insert("com.openai.codex", "/opt/codex/icon.png");
        QCOMPARE(AgentBrand::appIcon("codex", apps), QStringLiteral("/opt/codex/icon.png"));
        apps.icons.insert("claude-code", "x");
        QCOMPARE(AgentBrand::appIcon("claude-code", apps), std::nullopt); // its row names no application
    }

    void tabSelectionScripts_data()
    {
        QTest::addColumn<QByteArray>("host");
        QTest::addColumn<QByteArray>("termSession");
        QTest::addColumn<QByteArray>("tty");
        QTest::addColumn<QByteArray>("parts"); // how the script starts, then what it holds, by " ; "; "" for none
        // iTerm2 by the id after the last ":", even of two names run together; Terminal by the tab's
        // tty, each tab tried on its own. With nothing to select the host is only activated.
        test::rows(R"(
iterm2           | com.googlecode.iterm2 | w0t1p0:ABC           | /dev/ttys001 | tell application "iTerm2"\n    activate\n ; if (id of s as text) is "ABC" then ; select w\n ; select t\n ; select s\n
two ids          | com.googlecode.iterm2 | w0t0p0:OLDw0t1p0:NEW |              | tell application "iTerm2" ; is "NEW" then
terminal         | com.apple.Terminal    |                      | /dev/ttys004 | tell application "Terminal"\n    activate\n ; if (tty of t as text) is "/dev/ttys004" then ; set selected of t to true ; set index of w to 1 ; try\n ; end try
terminal, no tty | com.apple.Terminal    | w0t1p0:ABC           |              |
iterm2, no id    | com.googlecode.iterm2 |                      | /dev/ttys001 |
host's case      | com.apple.terminal    |                      | /dev/ttys001 |
no host          |                       | w0t1p0:ABC           | /dev/pts/3   |
)");
    }
    void tabSelectionScripts()
    {
        QFETCH(QByteArray, host);
        QFETCH(QByteArray, termSession);
        QFETCH(QByteArray, tty);
        QFETCH(QByteArray, parts);
        AgentSession session;
        for (auto [field, value] :
             {std::pair{&session.hostBundle, host}, {&session.termSession, termSession}, {&session.tty, tty}}) {
            if (!value.isEmpty())
                *field = QString::fromUtf8(value);
        }
        const auto script = tabSelectionScript(session);
        QCOMPARE(script.has_value(), !parts.isEmpty());
        if (!script)
            return;
        QStringList expected;
        for (const QByteArray &part : parts.split(';'))
            expected << QString::fromUtf8(part.trimmed().replace("\\n", "\n"));
        QVERIFY2(script->startsWith(expected.first()), qPrintable(*script));
        for (const QString &part : expected.mid(1))
            QVERIFY2(script->contains(part), qPrintable(part));
    }

    void ptsNumbers_data()
    {
        QTest::addColumn<QByteArray>("tty");
        QTest::addColumn<QByteArray>("number");
        test::rows(R"(
pts       | /dev/pts/4   | 4
large     | /dev/pts/300 | 300
console   | /dev/tty1    | -
mac       | /dev/ttys001 | -
not digit | /dev/pts/4a  | -
empty     |              | -
)");
    }
    void ptsNumbers()
    {
        QFETCH(QByteArray, tty);
        QFETCH(QByteArray, number);
        const auto got = TerminalPanes::ptsNumber(QString::fromUtf8(tty));
        QCOMPARE(got ? QByteArray::number(*got) : QByteArray("-"), number);
    }

    void multiplexerOutputs()
    {
        const QByteArray panes = "/dev/pts/3\t%0\t$0\n/dev/pts/7\t%4\t$1\nbroken line\n";
        QCOMPARE(TerminalPanes::tmuxPane(panes, "/dev/pts/7"), (TerminalPanes::TmuxPane{"%4", "$1"}));
        QCOMPARE(TerminalPanes::tmuxPane(panes, "/dev/pts/1"), std::nullopt);
        QCOMPARE(TerminalPanes::tmuxPane("", "/dev/pts/3"), std::nullopt);

        const QByteArray clients = "/dev/pts/9\t$0\n/dev/pts/11\t$1\n/dev/pts/12\t$1\n";
        QCOMPARE(TerminalPanes::tmuxClientTtys(clients, "$1"), QStringList({"/dev/pts/11", "/dev/pts/12"}));
        QCOMPARE(TerminalPanes::tmuxClientTtys(clients, "$5"), QStringList());
        QCOMPARE(TerminalPanes::tmuxClientTtys(clients, ""), QStringList({"/dev/pts/9", "/dev/pts/11", "/dev/pts/12"}));

        const QByteArray wezterm = R"([{"window_id":0,"pane_id":2,"tty_name":"/dev/pts/5"},
                                      {"window_id":0,"pane_id":7,"tty_name":"/dev/pts/6"}])";
        QCOMPARE(TerminalPanes::weztermPane(wezterm, "/dev/pts/6"), QStringLiteral("7"));
        QCOMPARE(TerminalPanes::weztermPane(wezterm, "/dev/pts/8"), std::nullopt);
        QCOMPARE(TerminalPanes::weztermPane("not json", "/dev/pts/6"), std::nullopt);

        const char raw[] = "SHELL=/bin/sh\0TMUX=/tmp/tmux-1000/my,odd,1234,0\0TMUX_PANE=%3\0";
        const QByteArray environ(raw, sizeof raw - 1);
        QCOMPARE(TerminalPanes::environValue(environ, "TMUX_PANE"), QStringLiteral("%3"));
        QCOMPARE(TerminalPanes::environValue(environ, "TMUX_PAN"), std::nullopt);
        QCOMPARE(TerminalPanes::tmuxSocket(*TerminalPanes::environValue(environ, "TMUX")),
                 QStringLiteral("/tmp/tmux-1000/my,odd"));
        QCOMPARE(TerminalPanes::tmuxSocket("nonsense"), QString());
    }
};

QTEST_GUILESS_MAIN(AgentBrandTest)
#include "AgentBrandTest.moc"
