#pragma once

#include "Platform/Foundation/Locale.h"

#include <QString>

#include <array>

namespace mintaro {

/// Finds a text in others whatever their case, by the rules of a language and with canonical equivalence: "CAFÉ" is in
/// "Au café", however the accent is written. Made for many texts in a row; for one thread at a time.
class TextMatcher
{
public:
    TextMatcher(const QString &text, const Locale &locale);
    /// True for an empty text to find.
    [[nodiscard]] bool isIn(QStringView text) const;

private:
    [[nodiscard]] QString folded(QStringView text) const;

    static constexpr char16_t kTableSize = 0x300;
    /// U_FOLD_CASE_EXCLUDE_SPECIAL_I where the language has a dotless i.
    unsigned m_options;
    /// What letters fold to; 0 where it takes more than a look at the letter.
    std::array<char16_t, kTableSize> m_table {};
    QString m_text;
    mutable QString m_buffer;
};

} // namespace mintaro
