import QtQuick

import Mintaro

/// The row "Calendar" of a form. `edited` tells of the user's choice, which `selectedCalendarID` then holds.
FormRow {
    id: root

    property alias calendars: controller.calendars
    property alias selectedCalendarID: controller.selectedCalendarID

    signal edited

    label: qsTrId("Calendar")

    CalendarPickerController {
        id: controller
        onPicked: root.edited()
    }
    PopupMenuButton {
        accessibleName: root.label
        texts: controller.titles
        colors: controller.colors
        currentIndex: controller.selectedIndex
        onActivated: index => controller.pick(index)
    }
}
