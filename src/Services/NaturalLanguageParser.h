#pragma once

#include "Models/ParsedEvent.h"
#include "Platform/Foundation/DateDetector.h"
#include "Platform/Foundation/Environment.h"

namespace mintaro {

/// Turns one line of free text into a provisional event: the first date in it, a location, and the rest as the title.
/// Keeps nothing between calls and touches no store. Quick enough for each key that is typed.
class NaturalLanguageParser
{
public:
    /// `environment` says the present moment, zone and language; it must outlive the object.
    explicit NaturalLanguageParser(const Environment &environment);

    /// Absent only for a line of nothing but blanks. A date in the past stays as it was written.
    [[nodiscard]] std::optional<ParsedEvent> parse(const QString &text) const;

private:
    const Environment &m_environment;
    DateDetector m_dateDetector;
};

} // namespace mintaro
