#include "feedback/Feedback.h"

#include "base/Clock.h"
#include "base/Timer.h"
#include "platform/MailDrafts.h"
#include "platform/Pasteboard.h"

#include <QUrl>

namespace vaxo {

const QString Feedback::kSupportAddress = QStringLiteral("support@vaxo.ai");

Feedback::Feedback(Services services, std::function<Diagnostics()> facts, Clock &clock, QObject *parent)
    : QObject(parent), m_services(services), m_facts(std::move(facts)), m_clear(clock.createTimer(this))
{
    connect(m_clear, &Timer::timeout, this, [this] { setOutcome(QString()); });
}

QString Feedback::rowLabel() const
{
    return QStringLiteral("Help");
}

QString Feedback::reportLabel() const
{
    return QStringLiteral("Report a problem");
}

QString Feedback::copyLabel() const
{
    return QStringLiteral("Copy diagnostics");
}

QByteArray Feedback::encodeQueryValue(const QString &value)
{
    // What a URL query may hold unescaped besides letters, digits and "-._~", less "&", "=", "?" and
    // "#", which would end the value or the query.
    return QUrl::toPercentEncoding(value, "!$'()*+,;:@/");
}

QByteArray Feedback::draftAddress(const QString &subject, const QString &body)
{
    return "mailto:" + kSupportAddress.toUtf8() + "?subject=" + encodeQueryValue(subject) +
           "&body=" + encodeQueryValue(body);
}

void Feedback::reportProblem()
{
    const Diagnostics facts = m_facts();
    const QString subject =
        QStringLiteral("VAXO Island ") + facts.appVersion + QStringLiteral(" \u2014 problem report");
    const QString body = QStringLiteral("What happened?\n\n\nWhat did you expect instead?\n\n\n") + facts.text();
    const QUrl draft = QUrl::fromEncoded(draftAddress(subject, body), QUrl::StrictMode);
    if (draft.isValid() && m_services.mail.open(draft)) {
        setOutcome(QStringLiteral("Opened a draft in your mail app \u2014 nothing is sent until you send it"));
        return;
    }
    m_services.pasteboard.writeText(QStringLiteral("To: ") + kSupportAddress + QStringLiteral("\nSubject: ") + subject +
                                    QStringLiteral("\n\n") + body);
    setOutcome(QStringLiteral("No mail app is set up \u2014 the report is on your clipboard, send it to ") +
               kSupportAddress);
}

void Feedback::copyDiagnostics()
{
    m_services.pasteboard.writeText(diagnostics());
    setOutcome(QStringLiteral("Diagnostics copied"));
}

// Each message gets its full six seconds: a new one starts the countdown again.
void Feedback::setOutcome(const QString &text)
{
    if (text.isEmpty())
        m_clear->stop();
    else
        m_clear->start(kOutcomeSeconds);
    if (text == m_outcome)
        return;
    m_outcome = text;
    emit outcomeChanged();
}

} // namespace vaxo
