#pragma once

#include <cerrno>

namespace mintaro {

/// The result of a system call that is made again when a signal interrupts it before it did anything.
template <typename Call>
[[nodiscard]] auto retried(const Call &call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace mintaro
