#pragma once

#include "TempHome.h"

#include <QJsonObject>
#include <QProcess>
#include <QStringList>

namespace vaxo::test {

// The real Claude Code, offline: a throw-away home with the island's hooks installed and the
// project trusted, and the stand-in for its API on 127.0.0.1. Children end with the harness.
class ClaudeHarness {
public:
    static constexpr int kPatience = 90'000; // a cold start of Claude Code on a busy machine takes seconds

    ClaudeHarness();
    ~ClaudeHarness();

    // Whether Claude Code is installed and the stand-in listens.
    bool ready() const { return m_port > 0; }
    QString claude() const { return QStringLiteral(VAXO_CLAUDE_BINARY); }
    const TempHome &temp() const { return m_temp; }
    QString home() const { return m_temp.root() + QStringLiteral("/home"); }
    QString project() const { return m_project; }
    // The variables Claude Code runs with ("NAME=value"), nothing else: anything that still tries
    // another host meets a closed loopback port and fails at once.
    QStringList environment() const;

    // The session file of Claude Code's process, as an object (empty while there is none).
    QJsonObject session(qint64 pid) const;
    QString field(qint64 pid, const char *key) const { return session(pid).value(QLatin1String(key)).toString(); }
    // Whether that session waits for an answer the island can give.
    bool asks(qint64 pid) const;
    // Prints what the stand-in was asked, for a failed test.
    void report() const;

private:
    TempHome m_temp;
    QString m_project;
    QProcess m_api;
    int m_port = 0;
};

} // namespace vaxo::test
