#pragma once

#include "Platform/Foundation/UrlCharacters.h"

namespace mintaro {

/// Letters of the scripts that are written without spaces, so that a link may touch the words around it.
[[nodiscard]] constexpr bool isCjk(char32_t c)
{
    return (c >= 0x2E80 && c <= 0x9FFF) || (c >= 0xAC00 && c <= 0xD7AF) || (c >= 0xF900 && c <= 0xFAFF)
        || (c >= 0x20000 && c <= 0x3FFFF);
}

constexpr char32_t emojiSelector = 0xFE0F;
constexpr char32_t keycap = 0x20E3;

/// A character of a word in any script; emoji and their modifiers are none.
[[nodiscard]] inline bool isWordCharacter(char32_t c)
{
    if (c < 0x80)
        return isAsciiLetter(c) || isAsciiDigit(c);
    return QChar::isLetter(c) || QChar::isDigit(c) || (QChar::isMark(c) && c != emojiSelector && c != keycap);
}

/// Emoji with their modifiers, and other pictures.
[[nodiscard]] inline bool isPicture(char32_t c)
{
    if (c < 0x80)
        return false;
    const auto category = QChar::category(c);
    return category == QChar::Symbol_Other || category == QChar::Symbol_Modifier || c == emojiSelector || c == keycap;
}

/// What may stand in a label of a host's name; "_" is no host character, but names of files and variables have it.
[[nodiscard]] inline bool isLabelCharacter(char32_t c)
{
    return isWordCharacter(c) || c == U'-' || c == U'_';
}

/// What may stand in a path, query or fragment within running text. RFC 3987 would also allow quotes, dashes,
/// full-width punctuation and emoji, but in text those end a link.
[[nodiscard]] inline bool isTailCharacter(char32_t c)
{
    if (c < 0x80)
        return isAsciiUrlCharacter(c);
    return isWordCharacter(c)
        || std::u32string_view(U"\u00B7\u2010\u2013\u200C\u200D\u30FB").find(c) != std::u32string_view::npos;
}

[[nodiscard]] inline bool startsWithAt(QStringView text, qsizetype i, QStringView prefix)
{
    return text.sliced(i).startsWith(prefix, Qt::CaseInsensitive);
}

/// Whether "http://" or "https://" begins at offset `i`.
[[nodiscard]] inline bool isWebSchemeAt(QStringView text, qsizetype i)
{
    return startsWithAt(text, i, u"http://") || startsWithAt(text, i, u"https://");
}

} // namespace mintaro
