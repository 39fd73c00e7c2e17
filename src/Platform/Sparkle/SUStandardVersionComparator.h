#pragma once

#include <QStringView>

#include <compare>

namespace mintaro {

/// Which of two versions is the newer one. Numbers are compared as such and missing ones are 0 ("1.10" > "1.9",
/// "1.0" == "1.0.0"); letters behind them tell of what comes before the version ("1.0a1" < "1.0b2" < "1.0"). A "v" in
/// front, upper case, build metadata behind a "+", and what stands between the parts make no difference.
[[nodiscard]] std::weak_ordering compareVersions(QStringView a, QStringView b);

} // namespace mintaro
