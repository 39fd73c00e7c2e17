import QtQuick
import QtQuick.Templates as T

import Mintaro

/// One day of the month that days are picked from.
T.AbstractButton {
    id: root

    // Roles of the month's model.
    required property int index
    required property string number
    required property bool isCurrentMonth
    required property bool isToday
    required property bool isSelected
    required property string accessibleName

    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.Button
    Accessible.name: root.accessibleName
    Accessible.selected: root.isSelected
    Accessible.onPressAction: root.clicked()

    background: Item {
        Rectangle {
            anchors { fill: parent; margins: 1 }
            radius: height / 2
            color: root.isSelected ? Theme.accentFill : root.pressed ? Theme.press : root.hovered ? Theme.hover : "transparent"
            border.width: root.isToday && !root.isSelected ? 1 : 0
            border.color: Theme.accentText
        }
    }
    contentItem: Text {
        text: root.number
        font: root.isToday ? Theme.bodyBold : Theme.body
        color: root.isSelected ? Theme.onAccent : !root.isCurrentMonth ? Theme.secondary : root.isToday ? Theme.accentText : Theme.primary
        opacity: root.isCurrentMonth ? 1 : Theme.neighbourOpacity
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
