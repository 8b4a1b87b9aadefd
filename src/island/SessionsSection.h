#pragma once

#include "island/SessionListModel.h"

#include <QObject>

namespace vaxo {

class AskDecision;
class Clock;
class IslandState;
class Timer;

// The agents area of the card: the first two sessions as rows, the line about the rest, the waiting
// caption for the first waiting session of the list, the answer to its question, and the sentence that
// sums the agents up.
// Elapsed times are worded again once a minute, only while the section is shown. Main thread only.
class SessionsSection : public QObject {
    Q_OBJECT
    Q_PROPERTY(vaxo::SessionListModel *rows READ rows CONSTANT)
    Q_PROPERTY(bool shown READ shown WRITE setShown NOTIFY shownChanged)
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(bool empty READ empty NOTIFY changed)
    Q_PROPERTY(QString moreRunning READ moreRunning NOTIFY changed)
    Q_PROPERTY(bool waiting READ waiting NOTIFY changed)
    Q_PROPERTY(QString waitingId READ waitingId NOTIFY changed)
    Q_PROPERTY(QString waitingLabel READ waitingLabel NOTIFY changed)
    Q_PROPERTY(QString waitingBrandIcon READ waitingBrandIcon NOTIFY changed)
    Q_PROPERTY(QString waitingFor READ waitingFor NOTIFY changed)
    Q_PROPERTY(bool answerable READ answerable NOTIFY changed)
    Q_PROPERTY(QString askId READ askId NOTIFY changed)
    Q_PROPERTY(QString askTool READ askTool NOTIFY changed)
    Q_PROPERTY(QString askTarget READ askTarget NOTIFY changed)
    Q_PROPERTY(QString alwaysLabel READ alwaysLabel NOTIFY changed)
    Q_PROPERTY(QString moreWaiting READ moreWaiting NOTIFY changed)
    Q_PROPERTY(QString waited READ waited NOTIFY changed)
    Q_PROPERTY(QString needsPermission READ needsPermission CONSTANT)
    Q_PROPERTY(QString waitingApproval READ waitingApproval CONSTANT)
    Q_PROPERTY(QString emptyText READ emptyText CONSTANT)

public:
    static constexpr int kListedRows = 2;
    static constexpr double kRefreshInterval = 60;

    // The references must outlive the section.
    SessionsSection(const IslandState &state, const AskDecision &decisions, Clock &clock, QObject *parent = nullptr);

    SessionListModel *rows() const { return m_rows; }
    bool shown() const { return m_shown; }
    void setShown(bool shown);

    // The sentence about the agents: who waits, who just finished, how many work.
    QString headline() const { return m_view.headline; }
    bool empty() const { return m_view.empty; }
    QString moreRunning() const { return m_view.moreRunning; }
    bool waiting() const { return !m_view.waitingId.isEmpty(); }
    QString waitingId() const { return m_view.waitingId; }
    QString waitingLabel() const { return m_view.waitingLabel; }
    QString waitingBrandIcon() const { return m_view.waitingBrandIcon; }
    QString waitingFor() const { return m_view.waitingFor; }
    bool answerable() const { return m_view.answerable; }
    QString askId() const { return m_view.askId; }
    QString askTool() const { return m_view.askTool; }
    QString askTarget() const { return m_view.askTarget; }
    // The third answer's words when the agent offers one ("Always allow"), else empty.
    QString alwaysLabel() const { return m_view.alwaysLabel; }
    QString moreWaiting() const { return m_view.moreWaiting; }
    QString waited() const { return m_view.waited; }
    QString needsPermission() const;
    QString waitingApproval() const;
    QString emptyText() const;

    // Answers the question askId asks, when a session still waits on it; a click on a question that
    // is gone does nothing.
    Q_INVOKABLE void answer(const QString &askId, bool allow);
    // Allows, and lets the agent remember what it offered; only where it offered something.
    Q_INVOKABLE void answerAlways(const QString &askId);

signals:
    void shownChanged();
    void changed();

private:
    struct View {
        QString headline;
        bool empty = true;
        QString moreRunning;
        QString waitingId, waitingLabel, waitingBrandIcon, waitingFor;
        bool answerable = false;
        QString askId, askTool, askTarget, alwaysLabel, moreWaiting, waited;
        bool operator==(const View &) const = default;
    };
    void refresh();
    // Whether a session still asks askId, answerable as the test says.
    bool asks(const QString &askId, bool (AgentSession::*answerable)() const) const;

    const IslandState &m_state;
    const AskDecision &m_decisions;
    Clock &m_clock;
    SessionListModel *m_rows;
    Timer *m_ticker;
    bool m_shown = false;
    View m_view;
};

} // namespace vaxo
