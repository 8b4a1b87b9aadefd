#include "platform/linux/SpeechdWorker.h"

#include <algorithm>

namespace vaxo::linux_platform {

SpeechdWorker::SpeechdWorker(std::shared_ptr<const std::atomic<quint64>> newest) : m_newest(std::move(newest)) {}

QTextToSpeech *SpeechdWorker::engine()
{
    if (!m_engine) {
        // Connects and fetches the service's voices before it returns: seconds with espeak-ng's
        // thousands of voices, forever with a stuck service.
        m_engine = new QTextToSpeech(QStringLiteral("speechd"), this);
        connect(m_engine, &QTextToSpeech::stateChanged, this, &SpeechdWorker::onState);
    }
    return m_engine;
}

void SpeechdWorker::listVoices()
{
    QTextToSpeech *tts = engine();
    QList<SpeechSynthesizer::Voice> listed;
    if (tts->state() != QTextToSpeech::Error) {
        const QLocale before = tts->locale();
        // The engine lists the voices of one locale at a time.
        for (const QLocale &locale : tts->availableLocales()) {
            tts->setLocale(locale);
            for (const QVoice &voice : tts->availableVoices()) {
                if (m_voices.contains(voice.name()))
                    continue;
                m_voices.insert(voice.name(), voice);
                listed.append({voice.name(), voice.locale().name().replace(QLatin1Char('_'), QLatin1Char('-'))});
            }
        }
        tts->setLocale(before);
    }
    emit voicesListed(listed);
}

void SpeechdWorker::stop()
{
    if (!m_engine)
        return;
    m_engine->stop(QTextToSpeech::BoundaryHint::Immediate);
}

void SpeechdWorker::speak(quint64 request, const QString &text, const QString &voice, double rate)
{
    if (request < *m_newest)
        return;
    QTextToSpeech *tts = engine();
    if (const auto it = m_voices.constFind(voice); it != m_voices.cend())
        tts->setVoice(*it);
    // The engine's scale runs from -1 to 1 with the normal speed at 0.
    tts->setRate(std::clamp((rate - 0.5) * 2, -1.0, 1.0));
    m_current = request;
    m_started = false;
    tts->say(text);
    if (tts->state() == QTextToSpeech::Error)
        emit speaking(request, false);
}

void SpeechdWorker::onState(QTextToSpeech::State state)
{
    if (state == QTextToSpeech::Speaking) {
        m_started = true;
        emit speaking(m_current, true);
    } else if (m_started || state == QTextToSpeech::Error) {
        // A Ready before the utterance began ends the one it replaced.
        m_started = false;
        emit speaking(m_current, false);
    }
}

} // namespace vaxo::linux_platform
