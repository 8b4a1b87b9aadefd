#pragma once

#include "agents/AgentSession.h"
#include "island/Mood.h"

#include <QList>
#include <QObject>
#include <QString>

#include <optional>

namespace vaxo {

class IslandState;

// What the summon panel shows: Vaxo's mood and one sentence about the agents, following the island
// state. Each value is published only when it changes.
class SummonView : public QObject {
    Q_OBJECT
    Q_PROPERTY(vaxo::Mood mood READ mood NOTIFY moodChanged)
    Q_PROPERTY(QString line READ line NOTIFY lineChanged)
public:
    explicit SummonView(const IslandState &state, QObject *parent = nullptr);

    Mood mood() const { return m_mood; }
    QString line() const { return m_line; }

    // waiting first, then a just-finished session, then by how many work; at rest by the user's
    // idleness.
    static Mood moodOf(const QList<AgentSession> &sessions, bool justFinished, bool userIdle);
    // The status sentence over the labels of the waiting and the working sessions.
    static QString lineOf(const QList<AgentSession> &sessions, const std::optional<QString> &justFinished,
                          bool userIdle);

signals:
    void moodChanged();
    void lineChanged();

private:
    void update();

    const IslandState &m_state;
    Mood m_mood = Mood::Resting;
    QString m_line;
};

} // namespace vaxo
