pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

/// The time zones that the user keeps.
FormPage {
    id: root

    required property WorldClockSettingsViewController controller

    onVisibleChanged: if (visible) root.controller.loadEntries()
    Component.onCompleted: root.controller.loadEntries()

    SettingsSection {
        heading: qsTrId("Timezones")

        EmptyRow {
            visible: root.controller.rows.length === 0
            text: qsTrId("No timezones added")
        }
        Repeater {
            model: root.controller.rows

            FormRow {
                id: row
                required property worldClockRow modelData
                label: row.modelData.displayName

                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: row.modelData.abbreviation
                    font: Theme.body
                    color: Theme.secondary
                    textFormat: Text.PlainText
                    Accessible.role: Accessible.StaticText
                    Accessible.name: row.label + ", " + text
                }
                PlainButton {
                    id: removal
                    accessibleName: qsTrId("accessibility.remove %@").arg(row.label)
                    padding: 4
                    contentItem: Symbol {
                        name: "minus.circle"
                        size: 15
                        color: Theme.red
                    }
                    onClicked: {
                        // The row goes, and the keyboard is not to go with it.
                        if (removal.activeFocus)
                            addButton.forceActiveFocus(Qt.TabFocusReason);
                        root.controller.remove(row.modelData.timezoneID);
                    }
                }
            }
        }
        Item {
            width: parent.width
            height: Theme.formRowHeight + 8

            PushButton {
                id: addButton
                anchors { left: parent.left; leftMargin: Theme.margin; verticalCenter: parent.verticalCenter }
                text: qsTrId("Add Timezone...")
                onClicked: root.controller.isShowingPicker = true
            }
        }
    }
}
