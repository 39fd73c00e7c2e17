#pragma once

#include "Platform/AppKit/SoundPlayer.h"

namespace mintaro {

/// The sounds of the desktop's theme, on its sound system. Nothing is kept between two sounds.
class SystemSound final : public SoundPlayer
{
public:
    void play(const QString &name) override;
};

} // namespace mintaro
