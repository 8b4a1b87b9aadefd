#include "island/SessionListModel.h"

namespace vaxo {

SessionListModel::SessionListModel(QObject *parent) : KeyedListModel(parent) {}

void SessionListModel::sync(const QList<AgentSession> &sessions, double now, int limit)
{
    QList<SessionRow> next;
    const qsizetype n = limit < 0 ? sessions.size() : std::min<qsizetype>(limit, sessions.size());
    for (qsizetype i = 0; i < n; ++i)
        next << SessionRow::from(sessions.at(i), now);
    syncRows(m_rows, next);
}

int SessionListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant SessionListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const SessionRow &row = m_rows.at(index.row());
    switch (role) {
    case IdRole:
        return row.id;
    case AgentRole:
        return row.agent;
    case BrandRole:
        return row.brand;
    case BrandIconRole:
        return row.brandIcon;
    case LabelRole:
        return row.label;
    case IconRole:
        return QVariant::fromValue(row.icon);
    case ElapsedRole:
        return row.elapsed;
    case PromptRole:
        return row.prompt;
    case ActionToolRole:
        return row.actionTool;
    case ActionRestRole:
        return row.actionRest;
    case HasTasksRole:
        return row.hasTasks;
    case TaskSummaryRole:
        return row.taskSummary;
    case TasksCompletedRole:
        return row.tasksCompleted;
    case TaskSubjectsRole:
        return row.taskSubjects;
    case TaskActiveRole:
        return QVariant::fromValue(row.taskActive);
    case WaitingForRole:
        return row.waitingFor;
    case AnswerableRole:
        return row.answerable;
    case AskIdRole:
        return row.askId;
    case HeightRole:
        return row.height;
    default:
        return {};
    }
}

QHash<int, QByteArray> SessionListModel::roleNames() const
{
    return {{IdRole, "sessionId"},
            {AgentRole, "agent"},
            {BrandRole, "brand"},
            {BrandIconRole, "brandIcon"},
            {LabelRole, "label"},
            {IconRole, "statusIcon"},
            {ElapsedRole, "elapsed"},
            {PromptRole, "prompt"},
            {ActionToolRole, "actionTool"},
            {ActionRestRole, "actionRest"},
            {HasTasksRole, "hasTasks"},
            {TaskSummaryRole, "taskSummary"},
            {TasksCompletedRole, "tasksCompleted"},
            {TaskSubjectsRole, "taskSubjects"},
            {TaskActiveRole, "taskActive"},
            {WaitingForRole, "waitingFor"},
            {AnswerableRole, "answerable"},
            {AskIdRole, "askId"},
            {HeightRole, "rowHeight"}};
}

} // namespace vaxo
