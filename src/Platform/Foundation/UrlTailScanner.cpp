#include "Platform/Foundation/UrlTailScanner.h"

#include "Platform/Foundation/LinkCharacters.h"

#include <algorithm>

namespace mintaro {

namespace {

bool isOpening(char32_t c)
{
    return c == U'(' || c == U'[';
}

bool isClosing(char32_t c)
{
    return c == U')' || c == U']';
}

char16_t openingOf(char32_t closing)
{
    return closing == U')' ? u'(' : u'[';
}

} // namespace

qsizetype UrlTailScanner::end(qsizetype start, qsizetype tail)
{
    const QChar opener = start > 0 ? m_text[start - 1] : QChar();
    return trimmed(tail, scan(tail, opener), opener);
}

qsizetype UrlTailScanner::scan(qsizetype tail, QChar opener)
{
    qsizetype parentheses = 0;
    qsizetype brackets = 0;
    bool isPath = true;
    for (qsizetype i = tail; i < m_text.size();) {
        const char32_t c = codePointAt(m_text, i);
        qsizetype &depth = c == U'(' || c == U')' ? parentheses : brackets;
        if (endsAt(i, tail) || (c == U'\'' && opener == u'\''))
            return i;
        isPath = isPath && c != U'?' && c != U'#';
        if (isOpening(c)) {
            // Behind a path "[" is a footnote or markup; in queries it is usual.
            if ((isPath && c == U'[') || startsWithAt(m_text, i, u"[/") || isUnclosed(i))
                return i;
            ++depth;
        } else if (isClosing(c) && depth-- == 0) {
            return i;
        }
        i += unitCount(c);
    }
    return m_text.size();
}

bool UrlTailScanner::endsAt(qsizetype i, qsizetype tail) const
{
    const char32_t c = codePointAt(m_text, i);
    switch (c) {
    case U'%':
        return !isEscapeAt(m_text, i);
    case U'&':
        return isEntityAt(i);
    case U'h':
    case U'H':
    case U'w':
    case U'W':
    case U'm':
    case U'M':
        return isNextLinkAt(i, tail);
    default:
        return !isTailCharacter(c) && !isPictureInside(i, tail);
    }
}

/// An emoji that touches a word of the URL stands beside the link; behind a delimiter it is a part of its own.
bool UrlTailScanner::isPictureInside(qsizetype i, qsizetype tail) const
{
    if (i == tail || !isPicture(codePointAt(m_text, i)))
        return false;
    const QChar before = m_text[i - 1];
    return QStringView(u"/(=_-#").contains(before) || before.isLowSurrogate() || isPicture(before.unicode());
}

/// A character reference such as `&nbsp;` or `&#39;` ends a link, for only "&" itself can be part of one.
bool UrlTailScanner::isEntityAt(qsizetype i) const
{
    constexpr qsizetype longestName = 8;
    if (startsWithAt(m_text, i, u"&amp;"))
        return false;
    const QStringView name = m_text.sliced(i + 1, std::min(longestName + 1, m_text.size() - i - 1));
    const qsizetype semicolon = name.indexOf(u';');
    return semicolon >= 2 && std::ranges::all_of(name.first(semicolon), [](QChar c) {
        return isAsciiLetter(c.unicode()) || isAsciiDigit(c.unicode()) || c == u'#';
    });
}

/// Links are also listed with nothing but a comma between them, or with nothing at all. Behind "/", "=" and the like,
/// and behind an escape, a URL is part of the one around it.
bool UrlTailScanner::isNextLinkAt(qsizetype i, qsizetype tail) const
{
    if (i == tail)
        return false;
    const QChar before = m_text[i - 1];
    const bool isListed = before == u',' || before == u';';
    if (isListed && (startsWithAt(m_text, i, u"www.") || startsWithAt(m_text, i, u"mailto:")))
        return true;
    const bool isGlued
        = (isWordCharacter(before.unicode()) && !(i >= 3 && isEscapeAt(m_text, i - 3))) || before == u'.';
    return (isListed || isGlued) && isWebSchemeAt(m_text, i);
}

qsizetype UrlTailScanner::trimmed(qsizetype tail, qsizetype end, QChar opener) const
{
    const bool isEmphasized = opener == u'_' || opener == u'~';
    while (end > tail) {
        const QChar last = m_text[end - 1];
        const bool isClosingMark = QStringView(u".,:;!?'*").contains(last) || (isEmphasized && last == opener);
        if (!isClosingMark)
            break;
        --end;
    }
    return end;
}

bool UrlTailScanner::isUnclosed(qsizetype i)
{
    if (!m_unclosed)
        findUnclosedBrackets();
    return std::ranges::binary_search(*m_unclosed, i);
}

void UrlTailScanner::findUnclosedBrackets()
{
    m_unclosed.emplace();
    std::vector<qsizetype> open;
    const auto closeRun = [&] {
        m_unclosed->insert(m_unclosed->end(), open.begin(), open.end());
        open.clear();
    };
    for (qsizetype i = 0; i < m_text.size();) {
        const char32_t c = codePointAt(m_text, i);
        if (!isTailCharacter(c) && !isPicture(c))
            closeRun();
        else if (isOpening(c))
            open.push_back(i);
        else if (isClosing(c) && !open.empty() && m_text[open.back()] == openingOf(c))
            open.pop_back();
        i += unitCount(c);
    }
    closeRun();
}

} // namespace mintaro
