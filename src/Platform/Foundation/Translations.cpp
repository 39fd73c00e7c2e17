#include "Platform/Foundation/Translations.h"

#include <QCoreApplication>

namespace mintaro {

std::unique_ptr<QTranslator> installTranslations(const Locale &locale)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(QStringLiteral(":/i18n/mintaro_%1.qm").arg(locale.language))) [[maybe_unused]]
        const bool loaded = translator->load(QStringLiteral(":/i18n/mintaro_en.qm"));
    QCoreApplication::installTranslator(translator.get());
    return translator;
}

} // namespace mintaro
