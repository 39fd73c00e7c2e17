#include "Platform/Foundation/Clock.h"

namespace mintaro {

Date SystemClock::now() const
{
    return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

} // namespace mintaro
