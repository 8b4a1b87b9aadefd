#pragma once

#include "platform/SpeechSynthesizer.h"

#include <QThread>

#include <atomic>
#include <memory>

namespace vaxo::linux_platform {

class SpeechdWorker;

// SpeechSynthesizer on speech-dispatcher (QTextToSpeech's "speechd" engine), reached from a thread
// of its own that starts with the first request, so that a program that never speaks never
// connects. With no sound server the service may report a line as spoken forever; that only makes
// each new line stop it first.
class SpeechdSynthesizer final : public SpeechSynthesizer {
    Q_OBJECT
public:
    explicit SpeechdSynthesizer(QObject *parent = nullptr);
    // Waits a moment for the service thread to end, and leaves it behind when the service is stuck.
    ~SpeechdSynthesizer() override;

    void listVoices() override;
    QList<Voice> voices() const override { return m_voices; }
    bool isSpeaking() const override { return m_speaking; }
    void stop() override;
    void speak(const QString &text, const QString &voice, double rate) override;

private:
    SpeechdWorker *worker();
    void onVoices(const QList<vaxo::SpeechSynthesizer::Voice> &voices);
    void onSpeaking(quint64 line, bool on);
    void setSpeaking(bool on);

    std::unique_ptr<QThread> m_thread;
    SpeechdWorker *m_worker = nullptr;
    std::shared_ptr<std::atomic<quint64>> m_newest = std::make_shared<std::atomic<quint64>>(0);
    QList<Voice> m_voices;
    bool m_listing = false;
    bool m_speaking = false;
};

} // namespace vaxo::linux_platform
