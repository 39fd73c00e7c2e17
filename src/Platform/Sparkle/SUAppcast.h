#pragma once

#include "Platform/Foundation/URL.h"

#include <vector>

namespace mintaro {

/// A version that a feed offers.
struct SUAppcastItem
{
    QString versionString; ///< what versions are compared by; never empty
    QString displayVersionString; ///< what people call the version
    QString title; ///< one line; may be empty
    URL link; ///< the version's page, else its download; by isSafeAddress
    QString channel; ///< empty: for everybody

    friend bool operator==(const SUAppcastItem &, const SUAppcastItem &) = default;
};

/// What stands in an appcast (RSS 2.0 with the elements of
/// http://www.andymatuschak.org/xml-namespaces/sparkle) for this system, in the feed's order. Items without a version
/// or a safe address are left out, and so are those for other systems. Nothing where the text is no such feed, is not
/// well formed or holds a document type.
[[nodiscard]] std::optional<std::vector<SUAppcastItem>> appcastItems(const QByteArray &xml);

/// Whether nobody on the way can read or change what stands there: by HTTPS, or by HTTP from this machine itself.
[[nodiscard]] bool isSafeAddress(const URL &url);

} // namespace mintaro
