import QtQuick

import Mintaro

/// The row "Alert" of a form. `edited` tells of the user's choice, which `alertOffset` then holds.
FormRow {
    id: root

    property alias alertOffset: controller.alertOffset

    signal edited

    label: qsTrId("Alert")

    AlertPickerController {
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
