import QtQuick
import QtQuick.Templates as T

import Mintaro

/// One entry of a menu: a symbol and a text, or the line between two groups of them.
T.MenuItem {
    id: root

    required property string title
    required property string symbol
    required property bool isSeparator
    required property bool isDestructive

    readonly property color ink: root.highlighted ? Theme.onAccent : root.isDestructive ? Theme.red : Theme.primary

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: root.isSeparator ? 9 : Theme.menuRowHeight
    enabled: !root.isSeparator
    hoverEnabled: true
    text: root.title
    Accessible.ignored: root.isSeparator
    Accessible.name: root.title
    Accessible.onPressAction: root.clicked()

    background: Rectangle {
        radius: Theme.controlRadius - 1
        color: !root.highlighted ? "transparent" : root.isDestructive ? Theme.redFill : Theme.accentFill

        Rectangle {
            anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter; margins: 6 }
            height: 1
            visible: root.isSeparator
            color: Theme.separator
        }
    }
    contentItem: Row {
        leftPadding: 8
        rightPadding: 12
        spacing: 8
        visible: !root.isSeparator

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbol
            size: 13
            color: root.ink
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.title
            font: Theme.body
            color: root.ink
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
    }
}
