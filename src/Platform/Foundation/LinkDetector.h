#pragma once

#include "Platform/Foundation/URL.h"

#include <vector>

namespace mintaro {

/// Finds links in free text: RFC 3986 URLs as they are written, bare hosts with a public suffix (given "http://"), and
/// e-mail addresses (given "mailto:"). Only http, https and mailto come out. Linear in the text's length. A constant
/// object may be used from several threads at once.
class LinkDetector
{
public:
    struct Match
    {
        qsizetype location = 0; ///< UTF-16 offset of the matched text
        qsizetype length = 0; ///< in UTF-16 units
        URL url;
    };

    LinkDetector();

    /// All links in order of occurrence.
    [[nodiscard]] std::vector<Match> matches(const QString &text) const;
    [[nodiscard]] std::optional<Match> firstMatch(const QString &text) const;
};

} // namespace mintaro
