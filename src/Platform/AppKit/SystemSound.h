#pragma once

#include "Platform/AppKit/SoundPlayer.h"

#include <future>

namespace mintaro {

/// The sounds of the desktop's theme, on its sound system. Nothing is kept between two sounds. The destructor waits for
/// the end of what sounds, ten seconds at most.
class SystemSound final : public SoundPlayer
{
public:
    void play(const QString &name) override;

private:
    std::future<void> m_sounding;
};

} // namespace mintaro
