#pragma once

#include "platform/SpeechSynthesizer.h"

#include <QLocale>
#include <QObject>

#include <optional>

namespace vaxo {

// Vaxo's voice: speaks one line at a time with the desktop's synthesiser, in one voice chosen once,
// the first time she speaks, for the user's language. A new line cuts off the one in progress; an
// empty line changes nothing. Main thread only; the synthesiser speaks on its own.
class IslandVoice : public QObject {
    Q_OBJECT
public:
    // language is the user's, as "en-US" (userLanguage).
    IslandVoice(SpeechSynthesizer &synth, QString language, QObject *parent = nullptr);

    // Speaks text at rate (0.5 is the normal speed). The first line waits for the voices to be known.
    void say(const QString &text, double rate);

    // The voice for language among the installed ones, in their order: the first of exactly that
    // language and region, else the first of the same language, else the first of any; empty (the
    // synthesiser's default) when none is installed.
    static QString chooseVoice(const QList<SpeechSynthesizer::Voice> &voices, const QString &language);
    // A locale's language and region, as "en-US"; the C locale of a bare system counts as English.
    static QString userLanguage(const QLocale &locale);

private:
    struct Line {
        QString text;
        double rate = 0.5;
    };

    void onVoicesListed();
    void speakNow(const Line &line);

    SpeechSynthesizer &m_synth;
    QString m_language;
    std::optional<QString> m_voice; // chosen once the voices are known
    std::optional<Line> m_waiting;  // the newest line said before that
};

} // namespace vaxo
