#pragma once

#include "Platform/Foundation/Dates/DatePhrase.h"
#include "Platform/Foundation/Dates/DateText.h"

namespace mintaro {

/// A day as it was said, or days one after another.
struct DayRead
{
    std::chrono::local_days day {};
    std::optional<std::chrono::local_days> last {};
    std::optional<DayPart> part {};
    /// "in 2 hours": a moment rather than a day.
    std::optional<Date> instant {};
    int next = 0;
    /// An ISO 8601 date, which a "T" may follow.
    bool isIso = false;
    /// A day and a month without a year.
    bool isYearOpen = false;
};

/// Finds days in a text. For one text and one call: it keeps references.
class DayReader
{
public:
    DayReader(const DateText &text, const DateOrigin &origin)
        : m_text(text)
        , m_origin(origin)
    {
    }

    /// Where in a phrase a day stands.
    enum class Place {
        Start,
        Between, ///< behind "between": "and" joins the days of a month then
        End, ///< behind "to"
    };

    /// The day that begins at that token, its connectors included. What has no year or month of its own is the next
    /// one from `anchor` on.
    [[nodiscard]] std::optional<DayRead> read(int at, std::chrono::local_days anchor, Place place = Place::Start);

private:
    using Days = std::optional<DayRead>;
    /// What stood before the day.
    struct Lead
    {
        int start; ///< its first token
        int next;
        bool isAny = false;
        bool isDayOf = false; ///< a number behind it is a day
        bool isStrong = false; ///< as "on the", where "the" alone may begin anything
    };
    /// A day of the month, or several: "12", "the 3rd", "12-14".
    struct Numbers
    {
        int first;
        std::optional<int> last;
        bool isOrdinal;
        int nextToFirst;
        int next;
    };

    bool extendLead(Lead &lead) const;
    [[nodiscard]] Days readBody(int at, const Lead &lead);
    [[nodiscard]] Days readIso(int at) const;
    [[nodiscard]] Days readNumeric(int at, const Lead &lead) const;
    [[nodiscard]] Days readNumericRange(int at) const;
    [[nodiscard]] Days readNumberMonth(int at) const;
    [[nodiscard]] Days readMonthNumber(int at) const;
    [[nodiscard]] Days readYearMonth(int at) const;
    [[nodiscard]] Days readMonth(int at) const;
    [[nodiscard]] bool readBase(DayRead &base, int &direction);
    [[nodiscard]] Days readWeekday(int at, const Lead &lead);
    [[nodiscard]] Days readBehindWeekday(int weekday, int next);
    [[nodiscard]] Days readNthWeekday(int at) const;
    [[nodiscard]] Days readRelative(int at) const;
    [[nodiscard]] Days readOffset(int at);
    [[nodiscard]] Days readUnit(int at);
    [[nodiscard]] Days readEndOf(int at) const;
    [[nodiscard]] Days readWeekend(int at) const;
    [[nodiscard]] Days readDayOfMonth(int at, const Lead &lead) const;
    [[nodiscard]] bool isDayNumber(int at, const Lead &lead, const Numbers &numbers) const;
    [[nodiscard]] Days readPartOf(int at);

    [[nodiscard]] std::optional<Numbers> readNumbers(int at, bool takesWords) const;
    [[nodiscard]] Days monthDays(int month, const Numbers &numbers, int next, std::optional<int> year) const;
    [[nodiscard]] std::optional<int> yearAt(int at, int &next) const;
    /// "next month", "del mese prossimo": how many months away; -1 where nothing of the kind stands there.
    [[nodiscard]] int readOfMonth(int at, int &next) const;
    [[nodiscard]] int readModifiedUnit(int at, DateUnit unit, int &next) const;
    [[nodiscard]] bool isHouseNumber(int at) const;
    [[nodiscard]] bool isStreetName(int at, int next) const;
    [[nodiscard]] bool isName(int at, int next) const;
    [[nodiscard]] bool hasCompany(int at, int next, const Lead &lead) const;
    [[nodiscard]] bool isClock(int at) const;
    [[nodiscard]] int skipGluedMark(int at) const;
    [[nodiscard]] int skipStop(int at) const;

    const DateText &m_text;
    const DateOrigin &m_origin;
    std::chrono::local_days m_anchor {};
    Place m_place = Place::Start;
    /// "a week from a week from ..." goes no deeper.
    int m_depth = 0;
};

} // namespace mintaro
