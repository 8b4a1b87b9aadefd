#include "platform/linux/SpeechdSynthesizer.h"

#include "platform/linux/SpeechdWorker.h"

namespace vaxo::linux_platform {
namespace {

// How long termination waits for the service thread.
constexpr int kShutdownMs = 1500;

} // namespace

SpeechdSynthesizer::SpeechdSynthesizer(QObject *parent) : SpeechSynthesizer(parent) {}

SpeechdSynthesizer::~SpeechdSynthesizer()
{
    if (!m_thread)
        return;
    m_thread->quit();
    if (!m_thread->wait(kShutdownMs)) {
        // Blocked inside the service: a running thread cannot be destroyed, so it stays behind, and the
        // worker's signals no longer reach anyone.
        m_worker->disconnect(this);
        (void)m_thread.release();
    }
}

SpeechdWorker *SpeechdSynthesizer::worker()
{
    if (!m_worker) {
        m_thread = std::make_unique<QThread>();
        m_thread->setObjectName(QStringLiteral("speechd"));
        m_worker = new SpeechdWorker(m_newest);
        m_worker->moveToThread(m_thread.get());
        connect(m_thread.get(), &QThread::finished, m_worker, &QObject::deleteLater);
        connect(m_worker, &SpeechdWorker::voicesListed, this, &SpeechdSynthesizer::onVoices);
        connect(m_worker, &SpeechdWorker::speaking, this, &SpeechdSynthesizer::onSpeaking);
        m_thread->start();
    }
    return m_worker;
}

void SpeechdSynthesizer::listVoices()
{
    if (std::exchange(m_listing, true))
        return;
    SpeechdWorker *w = worker();
    QMetaObject::invokeMethod(
        w, [w] { w->listVoices(); }, Qt::QueuedConnection);
}

void SpeechdSynthesizer::stop()
{
    if (!m_worker)
        return;
    SpeechdWorker *w = m_worker;
    QMetaObject::invokeMethod(
        w, [w] { w->stop(); }, Qt::QueuedConnection);
    setSpeaking(false);
}

void SpeechdSynthesizer::speak(const QString &text, const QString &voice, double rate)
{
    SpeechdWorker *w = worker();
    const quint64 line = ++*m_newest;
    QMetaObject::invokeMethod(
        w, [w, line, text, voice, rate] { w->speak(line, text, voice, rate); }, Qt::QueuedConnection);
    setSpeaking(true);
}

void SpeechdSynthesizer::onVoices(const QList<Voice> &voices)
{
    m_voices = voices;
    emit voicesListed();
}

void SpeechdSynthesizer::onSpeaking(quint64 line, bool on)
{
    // Only the newest line's news counts: an older one was stopped or skipped.
    if (line == *m_newest)
        setSpeaking(on);
}

void SpeechdSynthesizer::setSpeaking(bool on)
{
    if (on == m_speaking)
        return;
    m_speaking = on;
    emit speakingChanged();
}

} // namespace vaxo::linux_platform
