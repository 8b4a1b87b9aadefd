#pragma once

#include "agents/AgentSession.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

namespace vaxo {

// The icon kinds have a namespace of their own so that the views can name them.
namespace status_icons {
Q_NAMESPACE

// What a session's row shows before its label: the working mark, the orange exclamation mark or the
// green check (for "done" and any other status).
enum class StatusIcon { Working, Waiting, Done };
Q_ENUM_NS(StatusIcon)

} // namespace status_icons

using status_icons::StatusIcon;

// One session as its row in the card shows it, every text already worded.
struct SessionRow {
    QString id;
    QString agent;
    QString brand;     // the agent's name as its maker writes it
    QString brandIcon; // the agent's mark, "image://brand/<agent>"
    QString label;
    StatusIcon icon = StatusIcon::Done;
    QString elapsed; // empty without a start time
    QString prompt;  // the user's last prompt, empty when none
    QString actionTool;
    QString actionRest;
    bool hasTasks = false;
    QString taskSummary;
    QString tasksCompleted; // empty when nothing is completed
    QStringList taskSubjects;
    QList<bool> taskActive; // per subject: under way, drawn emphasised
    QString waitingFor;
    bool answerable = false;
    QString askId;
    double height = 0; // the row's height in the card, as the card's size counts it

    static SessionRow from(const AgentSession &session, double now);
    // The URL of an agent's mark, as the views ask for it.
    static QString brandIconUrl(const QString &agent);

    bool operator==(const SessionRow &) const = default;
};

} // namespace vaxo
