#include "Platform/Foundation/Locale.h"

#include <QRegularExpression>

#include <unicode/locid.h>

#include <algorithm>

namespace mintaro {

namespace {

QString firstSetVariable(std::initializer_list<const char *> names)
{
    for (const char *name : names) {
        if (const QString value = qEnvironmentVariable(name); !value.isEmpty())
            return value;
    }
    return {};
}

QString mostLikelyRegion(const QString &language)
{
    icu::Locale locale(language.toLatin1().constData());
    UErrorCode status = U_ZERO_ERROR;
    locale.addLikelySubtags(status);
    return U_SUCCESS(status) ? QString::fromLatin1(locale.getCountry()) : QString();
}

/// Language, script, region.
QRegularExpressionMatch matchIdentifier(const QString &identifier)
{
    static const QRegularExpression form(
        QStringLiteral("^([A-Za-z]{2,3})(?:[-_]([A-Z][a-z]{3}))?(?:[-_]([A-Za-z]{2}))?(?:[.@].*)?$"));
    return form.match(identifier);
}

bool isIdentifier(const QString &text)
{
    return matchIdentifier(text).hasMatch();
}

} // namespace

Locale Locale::fromIdentifier(const QString &identifier)
{
    const auto match = matchIdentifier(identifier);
    if (!match.hasMatch())
        return {};
    Locale locale;
    locale.language = match.captured(1).toLower();
    locale.region = match.captured(3).toUpper();
    if (locale.region.isEmpty())
        locale.region = mostLikelyRegion(locale.language);
    return locale;
}

Locale Locale::current(const QStringList &preferredLanguages)
{
    // LC_ALL overrules every category (locale(7)); LANGUAGE is a list and overrules LC_MESSAGES unless that is C.
    const QString messages = firstSetVariable({ "LC_ALL", "LC_MESSAGES", "LANG" });
    const QString formats = firstSetVariable({ "LC_ALL", "LC_TIME", "LANG" });
    QString language = messages;
    const bool plain = messages.isEmpty() || messages == QLatin1String("C") || messages == QLatin1String("POSIX");
    if (const QString list = qEnvironmentVariable("LANGUAGE"); !list.isEmpty() && !plain)
        language = list.section(u':', 0, 0);
    const auto preferred = std::find_if(preferredLanguages.begin(), preferredLanguages.end(), isIdentifier);
    if (preferred != preferredLanguages.end())
        language = *preferred;
    Locale locale = fromIdentifier(formats);
    locale.language = fromIdentifier(language).language;
    return locale;
}

} // namespace mintaro
