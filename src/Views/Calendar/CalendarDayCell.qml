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
    focusPolicy: Qt.TabFocus
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

    contentItem: Item {
        Column {
            anchors.centerIn: parent
            width: parent.width
            spacing: Theme.dotsSpacing

            Text {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: root.number
                font: root.isToday ? Theme.bodyBold : Theme.body
                color: root.isSelected ? Theme.onAccent : !root.isCurrentMonth ? Theme.secondary : root.isToday ? Theme.accentText : Theme.primary
                opacity: root.isCurrentMonth ? 1 : Theme.neighbourOpacity
            }
            Item {
                width: parent.width
                height: Theme.dotsHeight - Theme.dotsSpacing

                Row {
                    anchors.centerIn: parent
                    spacing: root.isSelected ? 1 : 2

                    Repeater {
                        model: root.eventColors.slice(0, 3)

                        Rectangle {
                            id: dot
                            required property color modelData
                            // The thin light rim keeps a dot apart from the accent behind it.
                            width: root.isSelected ? 6 : 4
                            height: dot.width
                            radius: dot.width / 2
                            color: dot.modelData
                            border.width: root.isSelected ? 1 : 0
                            border.color: Theme.onAccent
                        }
                    }
                }
            }
        }
    }
}
