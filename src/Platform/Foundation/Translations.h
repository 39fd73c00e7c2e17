#pragma once

#include "Platform/Foundation/Locale.h"

#include <QTranslator>

#include <memory>

namespace mintaro {

/// Makes qtTrId() and qsTrId() speak the locale's language for as long as the result lives; languages without a
/// catalogue get English. Needs a QCoreApplication; for the main thread.
[[nodiscard]] std::unique_ptr<QTranslator> installTranslations(const Locale &locale);

} // namespace mintaro
