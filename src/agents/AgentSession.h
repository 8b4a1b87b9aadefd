#pragma once

#include "agents/AgentTasks.h"

#include <QByteArray>
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

    bool isWaiting() const { return status == QLatin1String("waiting"); }
    bool isWorking() const { return status == QLatin1String("working"); }
    // Waiting on a permission request that the island can answer.
    bool isAnswerable() const { return isWaiting() && askId && !askId->isEmpty(); }

    // Fails (nothing) on anything but a JSON object with the four required strings and well-typed
    // optional keys; a malformed task list fails the whole record.
    static std::optional<AgentSession> decode(const QByteArray &bytes);
    // All eighteen keys, null for empty values.
    QByteArray encode() const;

    bool operator==(const AgentSession &) const = default;
};

} // namespace vaxo

Q_DECLARE_METATYPE(vaxo::AgentSession)
