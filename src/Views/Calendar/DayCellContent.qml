pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

/// A day's number over the dots of its events. The dots' row keeps its height when it is empty, so that all numbers of a row
/// stand on one line.
Item {
    id: root

    required property string number
    required property bool isCurrentMonth
    required property bool isToday
    required property bool isSelected
    required property list<string> eventColors

    implicitHeight: column.implicitHeight

    /// A dot that goes is asked once more after its colour went.
    function dotColor(index: int): string {
        if (index < root.eventColors.length)
            return root.eventColors[index];
        return "transparent";
    }

    Column {
        id: column
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
                    // A number, so that dots are made anew only where there come to be more.
                    model: Math.min(3, root.eventColors.length)

                    Rectangle {
                        id: dot
                        required property int index
                        // The thin light rim keeps a dot apart from the accent behind it.
                        width: root.isSelected ? 6 : 4
                        height: dot.width
                        radius: dot.width / 2
                        color: root.dotColor(dot.index)
                        border.width: root.isSelected ? 1 : 0
                        border.color: Theme.onAccent
                    }
                }
            }
        }
    }
}
