#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace vaxo {

// The desktop's speech synthesiser. Every call returns at once; the service is reached elsewhere, so
// a missing or stuck one never holds the caller up: it then lists no voices and says nothing.
class SpeechSynthesizer : public QObject {
    Q_OBJECT
public:
    struct Voice {
        QString name;
        QString language; // BCP 47, as "en-US"
        bool operator==(const Voice &) const = default;
    };

    using QObject::QObject;

    // Asks the service for its voices (once; later calls do nothing); voicesListed follows when it has
    // answered, with an empty list when there is no service.
    virtual void listVoices() = 0;
    // The installed voices in the service's order, known once voicesListed came.
    virtual QList<Voice> voices() const = 0;
    // From the moment speak() is called until that utterance has ended or been stopped.
    virtual bool isSpeaking() const = 0;
    // Ends the utterance in progress at once, not at a word's end.
    virtual void stop() = 0;
    // Speaks text with the named voice (empty: the service's default) at rate, where 0.5 is the normal
    // speed, 0 the slowest and 1 the fastest.
    virtual void speak(const QString &text, const QString &voice, double rate) = 0;

signals:
    void voicesListed();
    void speakingChanged();
};

} // namespace vaxo
