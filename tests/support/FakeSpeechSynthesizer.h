#pragma once

#include "platform/SpeechSynthesizer.h"

#include <QStringList>

namespace vaxo::test {

// Records what it is asked to do as words ("list", "stop", "speak <voice>: <text>"); speaks until
// the test says the line ended, and lists its voices when the test emits voicesListed().
struct FakeSpeechSynthesizer final : SpeechSynthesizer {
    QList<Voice> installed;
    QStringList calls;
    bool speaking = false;

    void listVoices() override
    {
        if (!calls.contains(QStringLiteral("list"))) // later calls do nothing, as the interface says
            calls << QStringLiteral("list");
    }
    QList<Voice> voices() const override { return installed; }
    bool isSpeaking() const override { return speaking; }
    void stop() override
    {
        calls << QStringLiteral("stop");
        speaking = false;
    }
    void speak(const QString &text, const QString &voice, double) override
    {
        calls << QStringLiteral("speak %1: %2").arg(voice, text);
        speaking = true;
    }
};

} // namespace vaxo::test
