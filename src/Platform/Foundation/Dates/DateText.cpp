#include "Platform/Foundation/Dates/DateText.h"

namespace mintaro {

namespace {

constexpr qsizetype kMostDigits = 8;
/// Below those of all marks.
constexpr int kCodeOfNumbers = -0x10000;

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

constexpr char16_t kFirstOtherThanAscii = 0x80;

bool isAsciiLetter(QChar character)
{
    return (character.unicode() | 0x20) >= u'a' && (character.unicode() | 0x20) <= u'z';
}

bool isPartOfWord(QChar character)
{
    if (character.unicode() < kFirstOtherThanAscii)
        return isAsciiLetter(character);
    return character.isLetter() || character.isMark();
}

/// In lower case, and what an accent stands on instead of the accented letter.
char16_t foldedLetter(QChar character)
{
    if (character.unicode() < kFirstOtherThanAscii)
        return character.unicode() | 0x20;
    const QString parts = character.decomposition();
    return (parts.isEmpty() ? character : parts.front()).toLower().unicode();
}

/// Typographic marks count as the plain ones.
char16_t foldedMark(QChar mark)
{
    switch (mark.unicode()) {
    case u'\u2019':
    case u'\u2018':
    case u'`':
    case u'\u00b4':
        return u'\'';
    case u'\u2013':
    case u'\u2014':
        return u'\u2013';
    case u'\u2212':
    case u'\u2010':
    case u'\u2011':
        return u'-';
    default:
        return mark.unicode();
    }
}

qsizetype endOf(QStringView text, qsizetype from, bool (*belongs)(QChar))
{
    while (from < text.size() && belongs(text[from]))
        ++from;
    return from;
}

template <typename NumberOf>
DateTokens split(QStringView text, const NumberOf &numberOf)
{
    DateTokens tokens;
    QVarLengthArray<QChar, 32> word;
    bool afterBlank = true;
    bool afterLineBreak = true;
    for (qsizetype at = 0; at < text.size();) {
        const QChar first = text[at];
        if (first.isSpace()) {
            afterBlank = true;
            afterLineBreak = afterLineBreak || first == u'\n' || first == u'\r';
            ++at;
            continue;
        }
        DateToken token { DateToken::Kind::Mark, afterBlank, afterLineBreak, false, 0, static_cast<int>(at), 1, -1, 0 };
        if (isDigit(first)) {
            token.kind = DateToken::Kind::Number;
            token.length = static_cast<int>(endOf(text, at, isDigit) - at);
            token.code = kCodeOfNumbers;
            if (token.length <= kMostDigits) {
                token.value = text.sliced(at, token.length).toInt();
                token.code -= token.value + 1;
            }
        } else if (isPartOfWord(first) && !first.isMark()) {
            token.kind = DateToken::Kind::Word;
            token.length = static_cast<int>(endOf(text, at, isPartOfWord) - at);
            token.isCapital = first.isUpper() && (token.length == 1 || !text[at + 1].isUpper());
            word.clear();
            for (const QChar character : text.sliced(at, token.length))
                if (character.unicode() < kFirstOtherThanAscii || !character.isMark())
                    word.append(foldedLetter(character));
            token.letter = word.back().unicode();
            token.code = numberOf({ word.constData(), word.size() });
        } else {
            token.letter = foldedMark(first);
            token.code = -token.letter;
        }
        at += token.length;
        tokens.append(token);
        afterBlank = afterLineBreak = false;
    }
    return tokens;
}

} // namespace

DateTokens dateTokens(QStringView text, const DateVocabulary &vocabulary)
{
    return split(text, [&vocabulary](QStringView word) { return vocabulary.numberOf(word); });
}

DateTokens newDateTokens(QStringView writing, DateVocabulary &vocabulary)
{
    return split(writing, [&vocabulary](QStringView word) { return vocabulary.add(word); });
}

DateText::DateText(const DateTokens &tokens, const DateLexicon &lexicon, bool isOwnLanguage)
    : m_tokens(tokens)
    , m_language(lexicon.language())
    , m_isOwnLanguage(isOwnLanguage)
{
    for (int at = 0; at < size(); ++at) {
        m_first.append(static_cast<int>(m_senses.size()));
        m_kinds.append(0);
        understand(at, lexicon);
    }
    m_first.append(static_cast<int>(m_senses.size()));
    for (int at = 0; at + 2 < size(); ++at)
        if (isNumber(at) && isGluedMark(at + 1, u'.') && isGluedNumber(at + 2) && (*this)[at + 2].length == 2)
            ++m_decimals;
}

void DateText::understand(int at, const DateLexicon &lexicon)
{
    for (const DateLexicon::Entry &entry : lexicon.entries((*this)[at].code)) {
        if ((entry.traits & Abbreviated) && !m_isOwnLanguage)
            continue;
        int next = at + 1;
        for (const int code : entry.rest) {
            // "twenty-one" may be written in two words.
            if (code == -u'-' && !isDash(next))
                continue;
            if (next >= size() || (*this)[next].afterLineBreak || (*this)[next].code != code) {
                next = -1;
                break;
            }
            ++next;
        }
        if (next < 0)
            continue;
        m_senses.append({ entry.kind, entry.value, entry.traits, static_cast<quint8>(next - at) });
        m_kinds[at] |= maskOf(entry.kind);
        m_isAboutMedia = m_isAboutMedia || entry.kind == WordKind::Media;
    }
}

const DateText::Sense *DateText::longest(int at, WordKind kind) const
{
    const Sense *longest = nullptr;
    for (int i = m_first[at]; i < m_first[at + 1]; ++i) {
        const Sense &sense = m_senses[i];
        if (sense.kind == kind && (!longest || sense.count > longest->count))
            longest = &sense;
    }
    return longest;
}

bool DateText::isBehind(int at, WordKind kind) const
{
    constexpr int kMostWords = 4;
    for (int count = 1; count <= kMostWords; ++count) {
        const Sense *found = sense(at - count, kind);
        if (found && found->count == count)
            return true;
    }
    return false;
}

int DateText::skip(int at, WordKind kind) const
{
    const Sense *found = sense(at, kind);
    return found ? at + found->count : at;
}

bool DateText::hasWord(int from, int to) const
{
    for (int at = from; at < to; ++at)
        if (isWord(at) && hasSense(at))
            return true;
    return false;
}

bool DateText::isGluedMark(int at, char16_t character) const
{
    return isMark(at, character) && isGlued(at);
}

bool DateText::isGluedNumber(int at) const
{
    return isNumber(at) && isGlued(at);
}

bool DateText::isDash(int at) const
{
    return isMark(at, u'-') || isMark(at, u'\u2013');
}

bool DateText::isEnd(int at) const
{
    if (at >= size() || (*this)[at].afterLineBreak)
        return true;
    if ((*this)[at].kind != DateToken::Kind::Mark)
        return false;
    return QStringView(u",;.!?)(:-\u2013/|&\u00b7\u2022\u22c5").contains(QChar((*this)[at].letter));
}

bool DateText::beginsCleanly(int at) const
{
    if (!isGlued(at))
        return true;
    const int before = at - 1;
    if ((*this)[before].kind != DateToken::Kind::Mark)
        return (*this)[at].kind == DateToken::Kind::Mark && isWord(before);
    constexpr QStringView naming(u"#$\u20ac\u00a3+_\\*=~");
    constexpr QStringView bindingNumbers(u",:@%");
    constexpr QStringView bindingAll(u"./-'");
    const QChar mark((*this)[before].letter);
    if (naming.contains(mark))
        return false;
    // In "1:2", "a/b" and "x-5" the mark binds; after "(" or behind a blank it does not.
    if (!isGlued(before) || (*this)[before - 1].kind == DateToken::Kind::Mark)
        return true;
    if (bindingNumbers.contains(mark))
        return !isNumber(before - 1) || !isNumber(at);
    return !bindingAll.contains(mark);
}

bool DateText::endsCleanly(int at) const
{
    if (!isGlued(at))
        return true;
    if ((*this)[at].kind != DateToken::Kind::Mark)
        return false;
    constexpr QStringView counting(u"%\u20ac$\u00a3\u00b0_#+*=");
    constexpr QStringView binding(u".,:/-\u2013");
    const QChar mark((*this)[at].letter);
    if (counting.contains(mark))
        return false;
    if (mark == u'\'')
        return !isGlued(at + 1) || (*this)[at + 1].kind == DateToken::Kind::Mark;
    // "monday.com"
    if (mark == u'.' && isWord(at - 1) && isWord(at + 1) && isGlued(at + 1) && !hasSense(at + 1))
        return false;
    if (!isNumber(at - 1) || !binding.contains(mark))
        return true;
    // "03.12.45-B" is the number of a part.
    const bool isPartNumber = mark == u'-' && isWord(at + 1) && isGlued(at + 1) && !hasSense(at + 1);
    return !isGluedNumber(at + 1) && !isPartNumber;
}

} // namespace mintaro
