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

        readonly property MonthPopup month: popup.item as MonthPopup

        function show() {
            root.commit();
            if (!popup.month)
                popup.setSource("MonthPopup.qml", { appState: root.appState });
            popup.month.openAt(controller.date);
        }
    }
    Connections {
        target: popup.month

        function onPicked(day) {
            controller.moveToDay(day);
        }
    }

    /// Takes over what stands in the fields. To be called before what the form holds is used, where no click or key has left
    /// the fields.
    function commit() {
        day.commit();
        time.commit();
    }
}
