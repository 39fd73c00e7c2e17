#pragma once

#include <QStringView>

namespace mintaro {

/// Whether the name is a suffix under which hosts are registered ("it", "co.uk"), by the ICANN part of the public
/// suffix list (publicsuffix.org). Case does not matter; international names are taken in Unicode and in punycode. Any
/// thread.
[[nodiscard]] bool isPublicSuffix(QStringView name);

} // namespace mintaro
