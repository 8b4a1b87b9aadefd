#pragma once

#include "platform/MediaPlayers.h"

#include <QList>

namespace vaxo::test {

// Players that answer what the test sets: at once, or later when the test says (held answers), so
// that overlapping polls can be played out. Commands and media keys are recorded.
class FakeMediaPlayers final : public MediaPlayers {
public:
    bool running = true;
    bool systemSource = false;
    bool trusted = true;
    bool needsPermission = true;
    bool hold = false; // keep player answers until release()
    std::optional<NowPlaying> system;
    bool systemWorks = true;
    std::optional<NowPlaying> record;
    int systemReads = 0, playerReads = 0, prompts = 0, settingsOpened = 0;
    QList<MediaCommand> sent, keys;
    QList<Reply> held;

    bool anyPlayerRunning() const override { return running; }
    bool hasSystemSource() const override { return systemSource; }
    void readSystem(std::function<void(SystemReply)> done) override
    {
        ++systemReads;
        done({system, systemWorks});
    }
    void readPlayers(Reply done) override
    {
        ++playerReads;
        if (hold)
            held << done;
        else
            done(record);
    }
    // Answers the held read at index with answer.
    void release(qsizetype index, const std::optional<NowPlaying> &answer) { held.takeAt(index)(answer); }

    bool controlsDirectly(const NowPlaying &r) const override
    {
        return r.source == QLatin1String("Spotify") || r.source == QLatin1String("Music");
    }
    void send(const NowPlaying &, MediaCommand command, std::function<void()> done) override
    {
        sent << command;
        done();
    }
    void postMediaKey(MediaCommand command) override { keys << command; }
    bool mediaKeysNeedPermission() const override { return needsPermission; }
    bool accessibilityTrusted(bool prompt) override
    {
        prompts += prompt ? 1 : 0;
        return trusted;
    }
    void openAccessibilitySettings() override { ++settingsOpened; }

    void vanish(const QString &player) { emit playerGone(player); }
};

} // namespace vaxo::test
