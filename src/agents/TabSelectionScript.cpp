#include "agents/TabSelectionScript.h"

namespace vaxo {
namespace {

// %1: the session id. Every session of every tab of every window is walked.
const char kITermScript[] = R"(tell application "iTerm2"
    activate
    repeat with w in windows
        repeat with t in tabs of w
            repeat with s in sessions of t
                if (id of s as text) is "%1" then
                    select w
                    select t
                    select s
                    return
                end if
            end repeat
        end repeat
    end repeat
end tell)";

// %1: the tty. A tab that fails to answer is skipped.
const char kTerminalScript[] = R"(tell application "Terminal"
    activate
    repeat with w in windows
        repeat with t in tabs of w
            try
                if (tty of t as text) is "%1" then
                    set selected of t to true
                    set index of w to 1
                    return
                end if
            end try
        end repeat
    end repeat
end tell)";

} // namespace

std::optional<QString> tabSelectionScript(const AgentSession &session)
{
    const QString host = session.hostBundle.value_or(QString());
    const QString termSession = session.termSession.value_or(QString());
    const QString tty = session.tty.value_or(QString());
    if (host.contains(QLatin1String("iterm")) && !termSession.isEmpty()) {
        // iTerm2 names a session "w0t1p0:<id>"; a file may hold two such names run together, and the
        // id of the last one is the session's.
        const QString id = termSession.section(QLatin1Char(':'), -1);
        return QString::fromLatin1(kITermScript).arg(id);
    }
    if (host == QLatin1String("com.apple.Terminal") && !tty.isEmpty())
        return QString::fromLatin1(kTerminalScript).arg(tty);
    return std::nullopt;
}

} // namespace vaxo
