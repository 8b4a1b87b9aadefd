#pragma once

#include "agents/SessionSource.h"
#include "base/IslandSettings.h"
#include "island/IslandState.h"
#include "platform/SoundPlayer.h"

#include "TempHome.h"

#include <QStringList>

namespace vaxo::test {

// Remembers the sounds it was asked to play, and plays none.
struct RecordingSounds final : SoundPlayer {
    QStringList played;
    void play(const QString &name) override { played << name; }
};

// Session lists come when the test hands them to the callback (or to IslandState::apply).
struct ManualSource final : SessionSource {
    Callback callback;
    bool stopped = false;
    void start(Callback onChange) override { callback = std::move(onChange); }
    void stop() override { stopped = true; }
};

// An island state on the test's clock, over settings in a throw-away folder.
struct StateFixture {
    explicit StateFixture(Clock &clock)
        : settings(home.paths().settingsFile()), state(std::make_unique<ManualSource>(), clock, settings, sounds)
    {
    }

    TempHome home;
    IslandSettings settings;
    RecordingSounds sounds;
    IslandState state;
};

} // namespace vaxo::test
