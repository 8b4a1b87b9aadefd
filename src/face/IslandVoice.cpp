#include "face/IslandVoice.h"

#include <algorithm>
#include <utility>

namespace vaxo {

IslandVoice::IslandVoice(SpeechSynthesizer &synth, QString language, QObject *parent)
    : QObject(parent), m_synth(synth), m_language(std::move(language))
{
    connect(&m_synth, &SpeechSynthesizer::voicesListed, this, &IslandVoice::onVoicesListed);
}

void IslandVoice::say(const QString &text, double rate)
{
    if (text.isEmpty())
        return;
    if (m_voice) {
        speakNow({text, rate});
        return;
    }
    m_waiting = Line{text, rate};
    m_synth.listVoices();
}

void IslandVoice::onVoicesListed()
{
    if (m_voice)
        return;
    m_voice = chooseVoice(m_synth.voices(), m_language);
    if (const std::optional<Line> line = std::exchange(m_waiting, std::nullopt))
        speakNow(*line);
}

void IslandVoice::speakNow(const Line &line)
{
    if (m_synth.isSpeaking())
        m_synth.stop();
    m_synth.speak(line.text, *m_voice, line.rate);
}

QString IslandVoice::chooseVoice(const QList<SpeechSynthesizer::Voice> &voices, const QString &language)
{
    const auto first = [&voices](auto matches) {
        const auto it = std::find_if(voices.begin(), voices.end(), matches);
        return it == voices.end() ? std::optional<QString>() : it->name;
    };
    const QString base = language.section(QLatin1Char('-'), 0, 0);
    if (auto exact = first([&](const auto &voice) { return voice.language == language; }))
        return *exact;
    if (auto same = first([&](const auto &voice) { return voice.language.section(QLatin1Char('-'), 0, 0) == base; }))
        return *same;
    return voices.isEmpty() ? QString() : voices.first().name;
}

QString IslandVoice::userLanguage(const QLocale &locale)
{
    if (locale.language() == QLocale::C)
        return QStringLiteral("en-US");
    return locale.name().replace(QLatin1Char('_'), QLatin1Char('-'));
}

} // namespace vaxo
