#pragma once

#include "Platform/Foundation/Dates/DatePhrase.h"

namespace mintaro {

struct ResolvedDate
{
    Date start;
    std::chrono::seconds duration { 0 }; ///< 0 where the phrase gives no span
};

/// The moment and the span that a phrase means.
[[nodiscard]] ResolvedDate resolved(const DatePhrase &phrase, const DateOrigin &origin);

} // namespace mintaro
