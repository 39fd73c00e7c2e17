#pragma once

#include <QString>
#include <QStringList>

namespace mintaro {

/// The user's language and formats. One value serves ICU, QLocale and the translation catalogues.
struct Locale
{
    /// ISO 639 code of the language of all texts, month and weekday names included.
    QString language = QStringLiteral("en");
    /// ISO 3166 code of the region whose formats and week rules hold.
    QString region = QStringLiteral("US");

    /// language_REGION, as ICU and QLocale take it.
    [[nodiscard]] QString identifier() const { return region.isEmpty() ? language : language + u'_' + region; }

    /// The locale of an identifier such as "it", "it_IT", "en-GB", "de_DE.UTF-8"; "C" and "POSIX" read as en_US. A
    /// language without a region gets its most likely one.
    [[nodiscard]] static Locale fromIdentifier(const QString &identifier);
    /// The user's: the language from the first of `preferredLanguages` (the preference AppleLanguages) that is one,
    /// else from LANGUAGE or LC_MESSAGES; region and formats from LC_TIME.
    [[nodiscard]] static Locale current(const QStringList &preferredLanguages);

    friend bool operator==(const Locale &, const Locale &) = default;
};

} // namespace mintaro
