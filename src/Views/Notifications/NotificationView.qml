pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

/// A notification as a card of its own, for desktops that show none.
CardGround {
    id: root

    required property NotificationViewController controller

    width: Theme.notificationWidth
    height: column.implicitHeight + 2 * Theme.sheetPadding
    Accessible.role: Accessible.Notification
    Accessible.name: root.controller.title
    Accessible.description: root.controller.body

    Column {
        id: column
        x: Theme.sheetPadding
        y: Theme.sheetPadding
        width: parent.width - 2 * x
        spacing: 4

        Text {
            width: parent.width
            text: root.controller.title
            font: Theme.headline
            color: Theme.primary
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            elide: Text.ElideRight
            maximumLineCount: 3
        }
        Text {
            width: parent.width
            bottomPadding: 8
            text: root.controller.body
            font: Theme.subheadline
            color: Theme.secondary
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            elide: Text.ElideRight
            maximumLineCount: 3
        }
        Row {
            anchors.right: parent.right
            spacing: 8

            PushButton {
                text: qsTrId("notification.dismiss")
                onClicked: root.controller.dismiss()
            }
            Repeater {
                model: root.controller.actionTitles

                PushButton {
                    required property int index
                    required property string modelData
                    text: modelData
                    prominent: true
                    onClicked: root.controller.choose(index)
                }
            }
        }
    }
}
