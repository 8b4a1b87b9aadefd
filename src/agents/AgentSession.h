#pragma once

#include "agents/AgentProcess.h"
#include "agents/AgentTasks.h"

#include <QByteArray>
#include <QJsonArray>
#include <QMetaType>
#include <QString>

#include <optional>

namespace vaxo {

// One coding-agent session as its session file describes it. Optional fields are empty when the
// file holds null or lacks the key.
struct AgentSession {
    QString id;
    QString agent;
    QString label;
    QString status; // "working", "waiting", "done"; anything else is kept verbatim
    std::optional<double> started;
    std::optional<double> updated;
    std::optional<QString> lastPrompt;
    std::optional<QString> lastAction;
    std::optional<AgentTasks> tasks;
    std::optional<QString> waitingFor;
    std::optional<QString> cwd;
    std::optional<QString> hostBundle;
    std::optional<QString> termApp;
    std::optional<QString> termSession;
    std::optional<QString> tty;
    std::optional<QString> askTool;
    std::optional<QString> askTarget;
    std::optional<QString> askId;
    // Beyond the eighteen: the agent's process, and what an "always" answer would let it remember
    // (the request's own suggestions, as the agent offered them). A malformed value counts as none.
    std::optional<AgentProcess> process;
    std::optional<QJsonArray> askSuggestions;

    bool isWaiting() const { return status == QLatin1String("waiting"); }
    bool isWorking() const { return status == QLatin1String("working"); }
    // Waiting on a permission request that the island can answer.
    bool isAnswerable() const { return isWaiting() && askId && !askId->isEmpty(); }
    // A turn that an API error ended: done, with the error's kind where a question would be.
    bool hasFailed() const { return status == QLatin1String("done") && waitingFor && !waitingFor->isEmpty(); }
    // Answerable with "always" too: the agent offered something to remember.
    bool offersAlways() const { return isAnswerable() && askSuggestions && !askSuggestions->isEmpty(); }

    // Fails (nothing) on anything but a JSON object with the four required strings and well-typed
    // optional keys; a malformed task list fails the whole record.
    static std::optional<AgentSession> decode(const QByteArray &bytes);
    // All twenty keys, null for empty values.
    QByteArray encode() const;

    bool operator==(const AgentSession &) const = default;
};

} // namespace vaxo

Q_DECLARE_METATYPE(vaxo::AgentSession)
