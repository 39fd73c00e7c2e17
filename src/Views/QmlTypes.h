#pragma once

#include "App/AppState.h"
#include "Views/Main/MenuBarLabel.h"

#include <QtQml/qqml.h>

namespace mintaro {

// The models know nothing of QML; here they get their names in it.

struct AppStateForQml
{
    Q_GADGET
    QML_FOREIGN(mintaro::AppState)
    QML_NAMED_ELEMENT(AppState)
    QML_UNCREATABLE("The application has one")
};

struct CalendarViewModelForQml
{
    Q_GADGET
    QML_FOREIGN(mintaro::CalendarViewModel)
    QML_NAMED_ELEMENT(CalendarViewModel)
    QML_UNCREATABLE("AppState owns it")
};

struct MenuBarLabelForQml
{
    Q_GADGET
    QML_FOREIGN(mintaro::MenuBarLabel)
    QML_NAMED_ELEMENT(MenuBarLabelModel)
    QML_UNCREATABLE("The application has one")
};

} // namespace mintaro
