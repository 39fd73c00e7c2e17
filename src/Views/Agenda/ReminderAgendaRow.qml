import QtQuick

import Mintaro

Item {
    id: root

    required property string title
    required property color calendarColor
    required property bool isCompleted
    required property string accessibleName

    implicitHeight: Math.max(mark.height, label.implicitHeight) + 8
    Accessible.role: Accessible.ListItem
    Accessible.name: root.accessibleName

    FocusRing {
        shown: root.activeFocus
        gap: -2
    }
    Symbol {
        id: mark
        anchors { left: parent.left; leftMargin: Theme.margin; verticalCenter: parent.verticalCenter }
        name: root.isCompleted ? "checkmark.circle.fill" : "circle"
        color: root.isCompleted ? Theme.secondary : root.calendarColor
        size: 13
    }
    Text {
        id: label
        anchors { left: mark.right; leftMargin: 8; right: parent.right; rightMargin: Theme.margin; verticalCenter: parent.verticalCenter }
        text: root.title
        font.family: Theme.callout.family
        font.pixelSize: Theme.callout.pixelSize
        font.strikeout: root.isCompleted
        color: root.isCompleted ? Theme.secondary : Theme.primary
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        maximumLineCount: 1
    }
}
