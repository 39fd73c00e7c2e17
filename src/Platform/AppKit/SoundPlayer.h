#pragma once

#include <QString>

namespace mintaro {

/// Plays sounds.
class SoundPlayer
{
public:
    virtual ~SoundPlayer() = default;

    /// `name` as in the Sound Naming Specification, such as "bell". Returns at once; what cannot be played is passed
    /// over.
    virtual void play(const QString &name) = 0;
};

} // namespace mintaro
