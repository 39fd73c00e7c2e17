pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

/// A rounded box around rows of a form, with a line between each two that show.
Rectangle {
    id: root

    default property alias rows: column.data
    readonly property list<Item> rowsInSight: root.findRows(column.visibleChildren)

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
        model: Math.max(0, root.rowsInSight.length - 1)

        Rectangle {
            id: line
            required property int index
            x: Theme.margin
            y: root.rowsInSight[line.index + 1]?.y ?? 0
            width: root.width - 2 * Theme.margin
            height: 1
            color: Theme.separator
        }
    }

    /// What makes rows is a child too, but none that is seen.
    function findRows(children: list<Item>): list<Item> {
        const rows = [];
        for (let i = 0; i < children.length; ++i) {
            if (children[i].height > 0)
                rows.push(children[i]);
        }
        return rows;
    }
}
