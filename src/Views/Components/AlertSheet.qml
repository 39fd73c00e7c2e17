import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A message with one button, or a question with two.
Sheet {
    id: root

    required property string title
    required property string message
    required property string confirmText
    property bool destructive: false
    /// Empty: there is nothing to be undecided about.
    property string cancelText

    signal confirmed

    closePolicy: T.Popup.CloseOnEscape
    onOpened: (root.cancelText === "" ? confirm : cancel).takeFocus()

    contentWidth: 268
    contentHeight: column.implicitHeight + 2 * Theme.sheetPadding

    FocusScope {
        anchors.fill: parent
        Accessible.role: Accessible.AlertMessage
        Accessible.name: root.title
        Accessible.description: root.message

        Column {
            id: column
            x: Theme.sheetPadding
            y: Theme.sheetPadding
            width: parent.width - 2 * x
            spacing: 8

            Text {
                width: parent.width
                text: root.title
                font: Theme.headline
                color: Theme.primary
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
            }
            Text {
                width: parent.width
                bottomPadding: 6
                visible: text !== ""
                text: root.message
                font: Theme.subheadline
                color: Theme.secondary
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                elide: Text.ElideRight
                maximumLineCount: 12
                horizontalAlignment: Text.AlignHCenter
            }
            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 12

                PushButton {
                    id: cancel
                    visible: root.cancelText !== ""
                    text: root.cancelText
                    onClicked: root.close()
                }
                PushButton {
                    id: confirm
                    text: root.confirmText
                    prominent: true
                    destructive: root.destructive
                    onClicked: root.confirmed()
                }
            }
        }
    }
}
