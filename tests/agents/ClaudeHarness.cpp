#include "ClaudeHarness.h"

#include "agents/AgentSession.h"
#include "agents/HookInstaller.h"
#include "base/Clock.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <csignal>
#include <unistd.h>

namespace vaxo::test {

ClaudeHarness::ClaudeHarness()
{
    QDir().mkpath(home() + "/proj");
    QDir().mkpath(home() + "/.claude");
    m_project = QFileInfo(home() + "/proj").canonicalFilePath();
    // Onboarding done, the project trusted and the offline key accepted: nothing asks before work.
    const QJsonObject state{{"hasCompletedOnboarding", true},
                            {"customApiKeyResponses", QJsonObject{{"approved", QJsonArray{"sk-ant-test-offline"}}}},
                            {"projects", QJsonObject{{m_project, QJsonObject{{"hasTrustDialogAccepted", true}}}}}};
    TempHome::write(home() + "/.claude.json", QJsonDocument(state).toJson());
    QTest::ignoreMessage(QtInfoMsg, "[island] Claude Code hooks installed");
    HookInstaller(m_temp.paths(), home(), Clock::system()).installIfNeeded();

    m_api.setChildProcessModifier([] { ::setpgid(0, 0); });
    m_api.setStandardErrorFile(m_temp.root() + "/api.err");
    m_api.start("/usr/bin/python3",
                {qEnvironmentVariable("VAXO_SOURCE_DIR") + "/tests/agents/messages_api_standin.py"});
    if (m_api.waitForReadyRead(30'000) && QFileInfo(claude()).isExecutable())
        m_port = m_api.readLine().trimmed().toInt();
}

ClaudeHarness::~ClaudeHarness()
{
    if (m_api.processId() > 0)
        ::kill(-pid_t(m_api.processId()), SIGKILL);
    m_api.waitForFinished(10'000);
}

QStringList ClaudeHarness::environment() const
{
    // No paths with blanks here: the test's folders are made by QTemporaryDir.
    return QString("PATH=/usr/bin:/bin HOME=%1 VAXO_ASK_TIMEOUT=120 TMPDIR=%2 TERM=xterm-256color LANG=C.UTF-8 "
                   "XDG_CONFIG_HOME=%1/.config XDG_DATA_HOME=%1/.local/share XDG_CACHE_HOME=%1/.cache "
                   "ANTHROPIC_BASE_URL=http://127.0.0.1:%3 ANTHROPIC_API_KEY=sk-ant-test-offline "
                   "CLAUDE_CODE_MAX_RETRIES=0 CLAUDE_CODE_DISABLE_NONESSENTIAL_TRAFFIC=1 DISABLE_AUTOUPDATER=1 "
                   "HTTPS_PROXY=http://127.0.0.1:9 HTTP_PROXY=http://127.0.0.1:9 NO_PROXY=127.0.0.1,localhost")
        .arg(home(), m_temp.root())
        .arg(m_port)
        .split(' ');
}

QJsonObject ClaudeHarness::session(qint64 pid) const
{
    const QFileInfoList files = QDir(m_temp.paths().sessions()).entryInfoList({"*.json"}, QDir::Files);
    for (const QFileInfo &info : files) {
        const QJsonObject record = QJsonDocument::fromJson(TempHome::read(info.filePath())).object();
        if (record.value("process").toObject().value("pid").toInteger() == pid)
            return record;
    }
    return {};
}

bool ClaudeHarness::asks(qint64 pid) const
{
    const auto record = AgentSession::decode(QJsonDocument(session(pid)).toJson());
    return record && record->isAnswerable();
}

void ClaudeHarness::report() const
{
    qInfo().noquote() << "Stand-in's requests:\n" << TempHome::read(m_temp.root() + "/api.err").right(2000);
}

} // namespace vaxo::test
