#pragma once

#include "feedback/Diagnostics.h"

#include <QObject>
#include <QString>

#include <functional>

namespace vaxo {

class Clock;
class MailDrafts;
class Pasteboard;
class Timer;

// The problem report: a draft in the user's mail program, or, with none set up, the whole report on
// the clipboard; and the diagnostics block on its own. The program itself never sends anything. What
// came of the last action shows for six seconds. Main thread only.
class Feedback : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString outcome READ outcome NOTIFY outcomeChanged)
    Q_PROPERTY(QString rowLabel READ rowLabel CONSTANT)
    Q_PROPERTY(QString reportLabel READ reportLabel CONSTANT)
    Q_PROPERTY(QString copyLabel READ copyLabel CONSTANT)

public:
    static constexpr double kOutcomeSeconds = 6;
    static const QString kSupportAddress;

    struct Services {
        Pasteboard &pasteboard;
        MailDrafts &mail;
    };
    // facts: the diagnostics as they are now, asked for at each action.
    Feedback(Services services, std::function<Diagnostics()> facts, Clock &clock, QObject *parent = nullptr);

    // Empty when there is nothing to say.
    QString outcome() const { return m_outcome; }
    QString rowLabel() const;
    QString reportLabel() const;
    QString copyLabel() const;
    QString diagnostics() const { return m_facts().text(); }

    Q_INVOKABLE void reportProblem();
    Q_INVOKABLE void copyDiagnostics();

    // The draft's address: the support address with the subject and the body as query values.
    static QByteArray draftAddress(const QString &subject, const QString &body);
    // A query value percent-encoded so that "&", "=", "?" and "#" in it cannot end it.
    static QByteArray encodeQueryValue(const QString &value);

signals:
    void outcomeChanged();

private:
    void setOutcome(const QString &text);

    Services m_services;
    std::function<Diagnostics()> m_facts;
    Timer *m_clear;
    QString m_outcome;
};

} // namespace vaxo
