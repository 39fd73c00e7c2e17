pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

/// A rounded box around rows of a form, with a line between each two that show.
Rectangle {
    id: root

    default property alias rows: column.data

    implicitWidth: column.implicitWidth
    implicitHeight: column.implicitHeight
    radius: Theme.groupRadius
    color: Theme.sectionBand
    border.width: Theme.borderWidth
    border.color: Theme.separator

    Column {
        id: column
        width: parent.width
    }
    Repeater {
        model: Math.max(0, column.visibleChildren.length - 1)

        Rectangle {
            id: line
            required property int index
            x: Theme.margin
            y: column.visibleChildren[line.index + 1]?.y ?? 0
            width: root.width - 2 * Theme.margin
            height: 1
            color: Theme.separator
        }
    }
}
