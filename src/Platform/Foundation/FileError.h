#pragma once

#include <cstring>
#include <stdexcept>

namespace mintaro {

/// A failed operation on files; what() is the reason for people ("No space left on device"), without a path.
class FileError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
    /// `code`: as errno(3).
    explicit FileError(int code)
        : std::runtime_error(std::strerror(code))
    {
    }
};

} // namespace mintaro
