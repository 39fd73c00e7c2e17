import QtQuick
import QtQuick.Templates as T

import Mintaro

T.AbstractButton {
    id: root

    // Roles of the grid's model.
    required property int index
    required property string number
    required property bool isCurrentMonth
    required property bool isToday
    required property bool isSelected
    required property list<string> eventColors
    required property string accessibleName

    readonly property real circleSize: Math.min(root.width, root.height) - 4

    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: root.accessibleName
    Accessible.selected: root.isSelected
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Item {
        Rectangle {
            anchors.centerIn: parent
            width: root.circleSize
            height: root.circleSize
            radius: root.circleSize / 2
            color: root.isSelected ? Theme.accentFill : root.pressed ? Theme.press : root.hovered ? Theme.hover : "transparent"
            border.width: root.visualFocus ? 2 : root.isToday && !root.isSelected ? 1 : 0
            border.color: root.visualFocus && root.isSelected ? Theme.primary : Theme.accentText
        }
    }

    contentItem: DayCellContent {
        number: root.number
        isCurrentMonth: root.isCurrentMonth
        isToday: root.isToday
        isSelected: root.isSelected
        eventColors: root.eventColors
    }
}
