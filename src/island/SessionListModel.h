#pragma once

#include "base/KeyedListModel.h"
#include "island/SessionRow.h"

namespace vaxo {

// The sessions the card lists, one row each, in the session list's order (waiting first, then the
// most recently updated). A session that changes status moves its row; one that appears or goes
// inserts or removes one.
class SessionListModel : public KeyedListModel {
    Q_OBJECT
public:
    enum Role {
        IdRole = Qt::UserRole + 1,
        AgentRole,
        BrandRole,
        BrandIconRole,
        LabelRole,
        IconRole,
        ElapsedRole,
        PromptRole,
        ActionToolRole,
        ActionRestRole,
        HasTasksRole,
        TaskSummaryRole,
        TasksCompletedRole,
        TaskSubjectsRole,
        TaskActiveRole,
        WaitingForRole,
        AnswerableRole,
        AskIdRole,
        HeightRole,
    };

    explicit SessionListModel(QObject *parent = nullptr);

    // The first `limit` sessions (all when negative), worded for `now`.
    void sync(const QList<AgentSession> &sessions, double now, int limit = -1);
    const QList<SessionRow> &rows() const { return m_rows; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    QList<SessionRow> m_rows;
};

} // namespace vaxo
