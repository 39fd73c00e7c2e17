#pragma once

#include "Platform/Foundation/Dates/DateLexicon.h"

#include <QString>
#include <QVarLengthArray>

namespace mintaro {

/// A word, a row of digits, or any one other character that is no blank.
struct DateToken
{
    enum class Kind : quint8 { Word, Number, Mark };

    Kind kind;
    /// A blank stands before it, or it is the first.
    bool afterBlank;
    bool afterLineBreak;
    /// Of a word: begins with a capital, and is not in capitals as a whole.
    bool isCapital;
    /// Of a word its only or its last letter, of a mark itself; in lower case, without accents and plain.
    char16_t letter;
    int location; ///< UTF-16 offset
    int length; ///< in UTF-16 units
    int value; ///< of a number with up to eight digits; else -1
    /// What words of the lexicon are compared by: of a word its number in the vocabulary, 0 for one that is not in it;
    /// of a mark its negative character; of a number something below these.
    int code;

    /// Of a word: is nothing but that letter.
    [[nodiscard]] bool isLetter(char16_t single) const { return kind == Kind::Word && length == 1 && letter == single; }
};

/// Lines are short: most need no memory of their own.
using DateTokens = QVarLengthArray<DateToken, 48>;

/// Words that the vocabulary lacks get the code 0.
[[nodiscard]] DateTokens dateTokens(QStringView text, const DateVocabulary &vocabulary);
/// The same, of a writing that is to be known from now on.
[[nodiscard]] DateTokens newDateTokens(QStringView writing, DateVocabulary &vocabulary);

/// The tokens of a text as one language understands them. All positions are indices of tokens, and any may be asked
/// for.
class DateText
{
public:
    struct Sense
    {
        WordKind kind;
        qint16 value;
        quint8 traits;
        quint8 count; ///< tokens that it takes

        [[nodiscard]] bool has(WordTrait trait) const { return (traits & trait) != 0; }
    };

    /// `isOwnLanguage`: the user's, whose abbreviations and bare numbers count. `tokens` must outlive the object.
    DateText(const DateTokens &tokens, const DateLexicon &lexicon, bool isOwnLanguage);

    [[nodiscard]] int size() const { return static_cast<int>(m_tokens.size()); }
    [[nodiscard]] const DateToken &operator[](int at) const { return m_tokens[at]; }
    [[nodiscard]] const DateLanguage &language() const { return m_language; }
    [[nodiscard]] bool isOwnLanguage() const { return m_isOwnLanguage; }

    /// The longest meaning of that kind that begins there; null where there is none.
    [[nodiscard]] const Sense *sense(int at, WordKind kind) const
    {
        return at >= 0 && at < size() && hasAny(at, maskOf(kind)) ? longest(at, kind) : nullptr;
    }
    /// The same of what ends directly before that place.
    [[nodiscard]] bool isBehind(int at, WordKind kind) const;
    /// Behind the meaning of that kind that begins there; `at` itself where there is none.
    [[nodiscard]] int skip(int at, WordKind kind) const;
    /// Some meaning begins there.
    [[nodiscard]] bool hasSense(int at) const { return m_kinds[at] != 0; }
    /// A meaning of one of the kinds of that mask begins there.
    [[nodiscard]] bool hasAny(int at, quint64 kinds) const { return (m_kinds[at] & kinds) != 0; }
    /// The line speaks of a film, a song or a book.
    [[nodiscard]] bool isAboutMedia() const { return m_isAboutMedia; }
    /// How many numbers like "3.30" the text holds: of several most are prices.
    [[nodiscard]] int decimals() const { return m_decimals; }
    /// Any of the language's own words is among these tokens.
    [[nodiscard]] bool hasWord(int from, int to) const;

    [[nodiscard]] bool isMark(int at, char16_t character) const
    {
        return isKind(at, DateToken::Kind::Mark) && m_tokens[at].letter == character;
    }
    /// The same, with no blank before it.
    [[nodiscard]] bool isGluedMark(int at, char16_t character) const;
    [[nodiscard]] bool isNumber(int at) const { return isKind(at, DateToken::Kind::Number); }
    [[nodiscard]] bool isGluedNumber(int at) const;
    [[nodiscard]] bool isWord(int at) const { return isKind(at, DateToken::Kind::Word); }
    /// No blank between this token and the one before it.
    [[nodiscard]] bool isGlued(int at) const { return at > 0 && at < size() && !m_tokens[at].afterBlank; }
    /// A hyphen or a dash.
    [[nodiscard]] bool isDash(int at) const;
    /// Nothing stands there any more, or what does ends a phrase.
    [[nodiscard]] bool isEnd(int at) const;

    /// No letter or digit is glued to what begins there, nor a number by a mark.
    [[nodiscard]] bool beginsCleanly(int at) const;
    /// The same of what ends before `at`.
    [[nodiscard]] bool endsCleanly(int at) const;

private:
    [[nodiscard]] bool isKind(int at, DateToken::Kind kind) const
    {
        return at >= 0 && at < size() && m_tokens[at].kind == kind;
    }
    [[nodiscard]] const Sense *longest(int at, WordKind kind) const;
    void understand(int at, const DateLexicon &lexicon);

    const DateTokens &m_tokens;
    const DateLanguage &m_language;
    bool m_isOwnLanguage;
    int m_decimals = 0;
    bool m_isAboutMedia = false;
    QVarLengthArray<Sense, 64> m_senses;
    /// Where each token's senses begin in m_senses; one more for the end.
    QVarLengthArray<int, 49> m_first;
    /// The kinds of each token's senses, as of maskOf.
    QVarLengthArray<quint64, 48> m_kinds;
};

} // namespace mintaro
