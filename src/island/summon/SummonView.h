#pragma once

#include <QObject>
#include <QString>

namespace vaxo {

class IslandState;

// The one sentence the summon panel says about the agents, following the island state and published
// only when it changes. Her face there shows the island's own mood.
class SummonView : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString line READ line NOTIFY lineChanged)
public:
    explicit SummonView(const IslandState &state, QObject *parent = nullptr);

    QString line() const { return m_line; }

signals:
    void lineChanged();

private:
    void update();

    const IslandState &m_state;
    QString m_line;
};

} // namespace vaxo
