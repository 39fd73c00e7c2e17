import QtQuick

import Mintaro

/// The row "Repeat" of a form. `edited` tells of the user's choice, which `recurrenceRule` then holds.
FormRow {
    id: root

    property alias recurrenceRule: controller.recurrenceRule

    signal edited

    label: qsTrId("Repeat")

    RecurrencePickerController {
        id: controller
        onPicked: root.edited()
    }
    PopupMenuButton {
        accessibleName: root.label
        texts: controller.options
        currentIndex: controller.selectedIndex
        onActivated: index => controller.pick(index)
    }
}
