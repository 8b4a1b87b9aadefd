#include "island/SessionRow.h"

#include "agents/AgentBrand.h"
#include "island/CardText.h"
#include "island/IslandGeometry.h"

#include <QUrl>

namespace vaxo {

SessionRow SessionRow::from(const AgentSession &s, double now)
{
    SessionRow row;
    row.id = s.id;
    row.agent = s.agent;
    row.brand = AgentBrand::display(s.agent);
    row.brandIcon = brandIconUrl(s.agent);
    row.label = s.label;
    row.icon = s.isWorking() ? StatusIcon::Working : s.isWaiting() ? StatusIcon::Waiting : StatusIcon::Done;
    if (s.started)
        row.elapsed = CardText::durationText(*s.started, now);
    row.prompt = s.lastPrompt.value_or(QString());
    // The last action of a session that is no longer working is history; the row leaves it out, as
    // the card's size does.
    // A turn that an API error ended says why in the same line.
    if (IslandGeometry::showsAction(s)) {
        const CardText::ActionLine action =
            s.hasFailed() ? CardText::stopFailure(*s.waitingFor) : CardText::actionLine(*s.lastAction);
        row.actionTool = action.tool;
        row.actionRest = action.rest;
    }
    if (s.tasks) {
        row.hasTasks = true;
        row.taskSummary = CardText::taskSummary(*s.tasks);
        if (s.tasks->done > 0)
            row.tasksCompleted = CardText::tasksCompleted(*s.tasks);
        for (const AgentTaskItem &item : s.tasks->items) {
            row.taskSubjects << item.subject;
            row.taskActive << (item.status == QLatin1String("in_progress"));
        }
    }
    row.waitingFor = s.waitingFor.value_or(QString());
    row.answerable = s.isAnswerable();
    row.askId = s.askId.value_or(QString());
    row.height = IslandGeometry::rowHeight(s);
    return row;
}

QString SessionRow::brandIconUrl(const QString &agent)
{
    return QStringLiteral("image://brand/") + QString::fromUtf8(QUrl::toPercentEncoding(agent));
}

} // namespace vaxo
