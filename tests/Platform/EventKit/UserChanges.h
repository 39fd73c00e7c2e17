#pragma once

#include "StoreUser.h"

#include <functional>
#include <map>
#include <string>

namespace mintaro {

/// What users do to a store, each named, for the store that `UserChanges.cpp` expects.
[[nodiscard]] const std::map<std::string, std::function<void(StoreUser &)>> &userChanges();

/// That store: texts by their path below the root.
[[nodiscard]] std::map<std::string, QByteArray> storeBeforeUserChanges();

} // namespace mintaro
