#pragma once

#include "App/AppState.h"
#include "Platform/AppKit/MenuItem.h"

#include <vector>

namespace mintaro {

/// What can be done to an event or a reminder, for the menu of its row. `appState` must outlive the entries.
[[nodiscard]] std::vector<MenuItem> rowMenu(AppState &appState, const CalendarEvent &event);

} // namespace mintaro
