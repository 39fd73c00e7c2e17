#include "Platform/Foundation/TextMatcher.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace mintaro {

namespace {

/// Dashes, quotation marks and their like have no case and do not combine. The two spaces before them are left out:
/// they are canonically the same as the two that follow.
bool isPunctuation(char16_t unit)
{
    return unit >= 0x2002 && unit < 0x20d0;
}

icu::UnicodeString toIcu(QStringView text)
{
    return { false, text.utf16(), static_cast<std::int32_t>(text.size()) };
}

QString fromIcu(const icu::UnicodeString &text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

bool hasDotlessI(const QString &language)
{
    return language == QLatin1String("tr") || language == QLatin1String("az");
}

} // namespace

TextMatcher::TextMatcher(const QString &text, const Locale &locale)
    : m_options(hasDotlessI(locale.language) ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT)
{
    for (char16_t unit = 0; unit < kTableSize; ++unit) {
        const icu::UnicodeString result = icu::UnicodeString(unit).foldCase(m_options);
        m_table[unit] = result.length() == 1 ? result[0] : char16_t {};
    }
    m_text = folded(text);
}

QString TextMatcher::folded(QStringView text) const
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2 *composer = icu::Normalizer2::getNFCInstance(status);
    const icu::UnicodeString composed = composer->normalize(toIcu(text), status);
    return fromIcu(composer->normalize(icu::UnicodeString(composed).foldCase(m_options), status));
}

bool TextMatcher::isIn(QStringView text) const
{
    m_buffer.resize(text.size());
    QChar *to = m_buffer.data();
    for (const QChar each : text) {
        const char16_t unit = each.unicode();
        const char16_t fold = unit < kTableSize ? m_table[unit] : isPunctuation(unit) ? unit : char16_t {};
        if (fold == 0 && unit != 0)
            return folded(text).contains(m_text);
        *to++ = QChar(fold);
    }
    return QStringView(m_buffer).contains(m_text);
}

} // namespace mintaro
