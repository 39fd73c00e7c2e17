#pragma once

#include "Models/MeetingInfo.h"

#include <QString>

#include <optional>

namespace mintaro {

/// The texts of an event that may hold a meeting's link, in the order in which they are searched.
struct MeetingTexts
{
    std::optional<QString> location = std::nullopt;
    std::optional<QString> url = std::nullopt;
    std::optional<QString> notes = std::nullopt;
};

/// Finds the video-meeting link of an event. A value without state; usable from any thread.
class MeetingURLDetector
{
public:
    /// The first link of a known service; texts without one are passed over. Absent when there is none.
    [[nodiscard]] std::optional<MeetingInfo> detectMeetingURL(const MeetingTexts &texts) const;

    /// The web link (https) that a `deepLinkURL` of this class was made from. Absent for URLs of other schemes.
    [[nodiscard]] static std::optional<URL> webLink(const URL &deepLink);

private:
    [[nodiscard]] std::optional<MeetingInfo> findMeeting(const QString &text) const;
};

} // namespace mintaro
