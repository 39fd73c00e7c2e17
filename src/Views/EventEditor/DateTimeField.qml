import QtQuick

import Mintaro

/// A day and, unless `dateOnly`, a clock reading. Its owner sets `date` and takes it over on `dateEdited`.
FocusScope {
    id: root

    required property string accessibleName
    property alias appState: controller.appState
    property alias date: controller.date
    property bool dateOnly: false

    signal dateEdited

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight
    opacity: root.enabled ? 1 : Theme.disabledOpacity

    DateTimeFieldController {
        id: controller
        onEdited: root.dateEdited()
    }
    Row {
        id: row
        spacing: 8

        PlainButton {
            id: button
            accessibleName: qsTrId("accessibility.chooseDay %@").arg(root.accessibleName)
            padding: 5
            anchors.verticalCenter: parent.verticalCenter
            contentItem: Symbol {
                name: "calendar"
                size: 13
                color: Theme.secondary
            }
            onClicked: popup.show()
        }
        DateTimeEntry {
            id: day
            focus: true
            controller: controller
            entry: DateTimeFieldController.Day
            accessibleName: root.accessibleName
            onMonthRequested: popup.show()
        }
        DateTimeEntry {
            id: time
            visible: !root.dateOnly
            controller: controller
            entry: DateTimeFieldController.Time
            accessibleName: qsTrId("accessibility.time %@").arg(root.accessibleName)
            onMonthRequested: popup.show()
        }
    }
    // Most forms are filled in without it.
    Loader {
        id: popup
        width: root.width
        height: root.height
        active: false
        sourceComponent: MonthPopup {
            appState: root.appState
            onPicked: day => controller.moveToDay(day)
        }

        function show() {
            root.commit();
            popup.active = true;
            popup.item.openAt(controller.date);
        }
    }

    /// Takes over what stands in the fields. To be called before what the form holds is used, where no click or key has left
    /// the fields.
    function commit() {
        day.commit();
        time.commit();
    }
}
