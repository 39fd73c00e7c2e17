#pragma once

#include "Platform/Foundation/URL.h"

#include <QString>

#include <optional>

namespace mintaro {

/// The video meeting of an event.
struct MeetingInfo
{
    QString service; ///< as it is shown, not translated
    URL url;
    std::optional<URL> deepLinkURL; ///< opens the service's own application; absent for services without one
    QString systemImage; ///< name of the symbol that stands for the service

    friend bool operator==(const MeetingInfo &, const MeetingInfo &) = default;
};

} // namespace mintaro
