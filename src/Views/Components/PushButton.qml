import QtQuick

import Mintaro

/// A button with a face and a text. The prominent one is what most users want; the destructive one takes something away.
PlainButton {
    id: root

    property bool prominent: false
    property bool destructive: false
    readonly property color fill: root.destructive ? Theme.redFill : Theme.accentFill

    accessibleName: root.text
    // A click, too, makes a field that was being typed in settle what it holds.
    focusPolicy: Qt.StrongFocus
    implicitHeight: Theme.controlHeight
    leftPadding: 12
    rightPadding: 12
    font: root.prominent ? Theme.labelText : Theme.body
    opacity: root.enabled ? 1 : Theme.disabledOpacity

    contentItem: Text {
        text: root.text
        font: root.font
        color: root.prominent ? Theme.onAccent : root.destructive ? Theme.red : Theme.primary
        textFormat: Text.PlainText
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        radius: Theme.controlRadius
        color: root.prominent ? root.fill : Theme.controlFace
        border.width: root.prominent ? 0 : Theme.borderWidth
        border.color: Theme.border

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: root.pressed ? Theme.press : root.hovered ? Theme.hover : "transparent"
        }
        FocusRing {
            shown: root.visualFocus
        }
    }
}
