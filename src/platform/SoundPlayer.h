#pragma once

#include <QString>

namespace vaxo {

// Plays the desktop's event sounds by name ("Submarine", "Glass", ...). A name that matches no sound,
// or a machine without sound, plays nothing.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;
    virtual void play(const QString &name) = 0;
};

} // namespace vaxo
