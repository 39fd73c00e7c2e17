import QtQuick

import Mintaro

/// The label as a chip of its own, for desktops where no host shows the item.
Rectangle {
    id: root

    required property MenuBarLabelModel label

    implicitWidth: items.implicitWidth + 2 * Theme.margin
    implicitHeight: 26
    width: root.implicitWidth
    height: root.implicitHeight
    radius: Theme.chipRadius
    color: Theme.background
    border.width: Theme.borderWidth
    border.color: Theme.border
    Accessible.role: Accessible.StaticText
    Accessible.name: root.label.text

    Row {
        id: items
        anchors.centerIn: parent
        spacing: 4

        Symbol {
            name: "calendar"
            anchors.verticalCenter: parent.verticalCenter
        }
        TabularText {
            text: root.label.formattedDate
            visible: text !== ""
            anchors.verticalCenter: parent.verticalCenter
        }
        LabelText {
            text: "\u00b7"
            color: Theme.secondary
            visible: root.label.showsNextEvent
        }
        Symbol {
            name: root.label.meetingSymbol
            color: Theme.blue
            size: 12
            visible: root.label.meetingSymbol !== ""
            anchors.verticalCenter: parent.verticalCenter
        }
        LabelText {
            text: root.label.title
            visible: root.label.showsNextEvent
        }
        TabularText {
            text: root.label.countdown
            color: Theme.blue
            visible: root.label.countdown !== ""
            anchors.verticalCenter: parent.verticalCenter
        }
    }

    component LabelText: Text {
        color: Theme.primary
        font: Theme.labelText
        textFormat: Text.PlainText
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
    }
}
