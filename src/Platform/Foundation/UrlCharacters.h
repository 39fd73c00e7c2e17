#pragma once

#include <QChar>
#include <QStringView>

#include <string_view>

namespace mintaro {

[[nodiscard]] constexpr bool isAsciiLetter(char32_t c)
{
    return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z');
}

[[nodiscard]] constexpr bool isAsciiDigit(char32_t c)
{
    return c >= U'0' && c <= U'9';
}

[[nodiscard]] constexpr bool isHexDigit(char32_t c)
{
    return isAsciiDigit(c) || (c >= U'a' && c <= U'f') || (c >= U'A' && c <= U'F');
}

/// unreserved, reserved and "%" of RFC 3986 section 2. "[" and "]" are taken anywhere, since queries such as
/// `filter[name]=x` are common in practice.
[[nodiscard]] constexpr bool isAsciiUrlCharacter(char32_t c)
{
    return c > U' ' && c < U'\x7f' && std::u32string_view(U"\"<>\\^`{|}").find(c) == std::u32string_view::npos;
}

/// The code point at UTF-16 offset `i`, which must lie inside the text; a lone surrogate comes out as it is.
[[nodiscard]] inline char32_t codePointAt(QStringView text, qsizetype i)
{
    const QChar c = text[i];
    if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(c, text[i + 1]);
    return c.unicode();
}

[[nodiscard]] constexpr qsizetype unitCount(char32_t c)
{
    return c > 0xFFFF ? 2 : 1;
}

/// Whether "%" and two hexadecimal digits stand at offset `i`.
[[nodiscard]] inline bool isEscapeAt(QStringView text, qsizetype i)
{
    return i + 2 < text.size() && text[i] == u'%' && isHexDigit(text[i + 1].unicode())
        && isHexDigit(text[i + 2].unicode());
}

} // namespace mintaro
