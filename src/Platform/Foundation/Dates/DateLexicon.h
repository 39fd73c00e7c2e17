#pragma once

#include <QString>

#include <deque>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mintaro {

/// What a word can mean in a date. A word of the tables may have several senses.
enum class WordKind : quint8 {
    // Days
    RelativeDay, ///< value: days from today
    TonightWord, ///< a day with a part of it in one word; value: days from today * 10 + DayPart
    DayPartWord, ///< value: DayPart
    Weekday, ///< value: ISO, 1 for Monday to 7 for Sunday
    Month, ///< value: 1 to 12
    Weekend,
    EndOf, ///< value: 1 the end, 0 the beginning
    This, ///< the nearest
    Next,
    Last,
    EndOfUnit, ///< one word for the end of a unit; value: DateUnit
    // Numbers
    Number,
    Ordinal,
    OrdinalMark, ///< what makes an ordinal of the digits before it
    // Lengths
    Unit, ///< value: DateUnit
    Minutes, ///< a length by itself, as "half an hour"; value: minutes
    AndHalf, ///< "and a half" behind a length
    Ago,
    Before, ///< behind a length; value: -1 before, 1 after what follows
    Now,
    FromNow,
    WeekLater, ///< behind a day: value weeks later, as in "monday week"
    // Times
    Noon,
    Midnight,
    Meridiem, ///< value: DayPart, Morning for am
    MeridiemLetter, ///< "8p"
    PartPhrase, ///< "in the morning" behind a time; value: DayPart
    OClock,
    FractionBefore, ///< "half past"; value: minutes to add to the hour that follows
    Past, ///< "ten past eight"
    ToHour, ///< "ten to eight"
    FractionAfter, ///< "e mezza"; value: minutes to add
    Minus, ///< "meno dieci"
    HourMark, ///< "ore" and "h" before an hour
    HourName, ///< "hours" behind one of four digits
    // What binds them
    At,
    On,
    DayOf, ///< before a number makes a day of the month of it, as "on the" and "il" do
    Article,
    From, ///< value: 1 from a time
    Between,
    And,
    To, ///< value: 0 to anything, 1 to a day of the month, 2 to a time
    In,
    InMonth, ///< before a month by itself
    For,
    About,
    Of,
    TimeWord, ///< "time" behind "in two weeks'"
    // What tells that it is no date
    NotBefore, ///< a number behind this is the number of something
    NotAfter, ///< a number before this counts something (value 0), an ordinal does (2); 1: a verb behind "may"
    NameBefore, ///< with this before it a weekday or month is part of a name
    NameAfter, ///< with this behind it
    Measure, ///< near a number that is no time: "mix 1:10", "odds 2.10"
    Media, ///< a line with this in it may hold a title
    Possessive,
    RomanNumeral,
    Street, ///< a date behind this is a street's name
    Subject, ///< before "sat" and the like
    Scripture, ///< a book of chapters and verses
};

enum class DateUnit { Second, Minute, Hour, Day, Week, Fortnight, Month, Year };
enum class DayPart { Morning, Afternoon, Evening, Night };

/// As the value of a row.
constexpr int of(DateUnit unit)
{
    return static_cast<int>(unit);
}

constexpr int of(DayPart part)
{
    return static_cast<int>(part);
}

enum WordTrait : quint8 {
    Abbreviated = 1, ///< may have a full stop; counts in the user's own language only
    Ambiguous = 2, ///< an everyday word too: needs company
    Behind = 4, ///< stands behind the word that it tells about, or before it
};

/// One meaning of one or more words.
struct WordRow
{
    WordKind kind;
    int value;
    /// The writings, in lower case and without accents, divided by "|".
    std::u16string_view writings;
    int traits = 0;
};

/// The words of one language.
struct DateLanguage
{
    std::span<const WordRow> rows;
    /// Numbers from zero on, divided by "|".
    std::u16string_view numbers;
    /// Ordinals from the first on, divided by "|".
    std::u16string_view ordinals;
    /// A month may stand before its day.
    bool monthBeforeDay = false;
    /// A plain number behind the article is a day ("il 23"), not only an ordinal.
    bool plainDayOfMonth = false;
    /// A comma may divide hours and minutes.
    bool decimalComma = false;
    /// Weekdays and the like are written with a capital.
    bool capitalizesDays = false;
};

[[nodiscard]] const DateLanguage &englishDateLanguage();
[[nodiscard]] const DateLanguage &italianDateLanguage();

/// The words of all languages, numbered: what is compared while a text is read are numbers. Immutable once the lexicons
/// are made.
class DateVocabulary
{
public:
    /// 0 for a word of no language.
    [[nodiscard]] int numberOf(QStringView folded) const;
    int add(QStringView folded);
    [[nodiscard]] int size() const { return static_cast<int>(m_words.size()) + 1; }

private:
    struct Hash
    {
        std::size_t operator()(QStringView word) const;
    };

    std::deque<QString> m_words;
    std::unordered_map<QStringView, int, Hash> m_numbers;
};

/// A set of kinds.
constexpr quint64 maskOf(WordKind kind)
{
    return quint64 { 1 } << static_cast<int>(kind);
}

template <typename... Kinds>
constexpr quint64 maskOf(WordKind first, Kinds... others)
{
    return maskOf(first) | maskOf(others...);
}

/// A language's words as they are looked up. Immutable; one a language, shared by all threads.
class DateLexicon
{
public:
    struct Entry
    {
        WordKind kind;
        qint16 value;
        quint8 traits;
        /// What must follow the first word, as DateToken::code.
        std::vector<int> rest;
    };

    DateLexicon(const DateLanguage &language, DateVocabulary &vocabulary);

    [[nodiscard]] const DateLanguage &language() const { return m_language; }
    /// All entries that begin with that token.
    [[nodiscard]] std::span<const Entry> entries(int code) const;

private:
    void add(const WordRow &row, DateVocabulary &vocabulary);

    const DateLanguage &m_language;
    /// By the code of the first token: of words from 0 on, of marks beside them.
    std::vector<std::vector<Entry>> m_ofWords;
    std::unordered_map<int, std::vector<Entry>> m_ofMarks;
};

/// All languages.
struct DateLexicons
{
    DateLexicons();
    [[nodiscard]] static const DateLexicons &shared();

    DateVocabulary vocabulary;
    DateLexicon english;
    DateLexicon italian;
};

} // namespace mintaro
