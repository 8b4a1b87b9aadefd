#pragma once

#include "platform/SpeechSynthesizer.h"

#include <QHash>
#include <QObject>
#include <QTextToSpeech>
#include <QVoice>

#include <atomic>
#include <memory>

namespace vaxo::linux_platform {

// The speech-dispatcher side of SpeechdSynthesizer, living on a thread of its own: connecting,
// listing voices and every request may block there when the service is stuck, never on the main
// thread. Lines carry a number; one older than the newest asked for is skipped, so that lines queued
// behind a stuck service are not all spoken once it wakes.
class SpeechdWorker : public QObject {
    Q_OBJECT
public:
    explicit SpeechdWorker(std::shared_ptr<const std::atomic<quint64>> newest);

    void listVoices();
    void stop();
    void speak(quint64 request, const QString &text, const QString &voice, double rate);

signals:
    void voicesListed(const QList<vaxo::SpeechSynthesizer::Voice> &voices);
    // The utterance of request began (true) or ended (false).
    void speaking(quint64 request, bool on);

private:
    QTextToSpeech *engine();
    void onState(QTextToSpeech::State state);

    std::shared_ptr<const std::atomic<quint64>> m_newest;
    QTextToSpeech *m_engine = nullptr;
    QHash<QString, QVoice> m_voices;
    quint64 m_current = 0; // the request of the utterance in progress
    bool m_started = false;
};

} // namespace vaxo::linux_platform
