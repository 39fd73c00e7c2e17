pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

/// The ground of what floats above a window's content: a face, a border, and a soft shadow of widening outlines.
Item {
    id: root

    property real radius: Theme.chipRadius
    /// Off where it would fall outside of the card.
    property bool shadowed: true

    Repeater {
        model: root.shadowed ? 6 : 0

        Rectangle {
            required property int index
            anchors { fill: parent; margins: -index; topMargin: 2 - index; bottomMargin: -2 - index }
            radius: root.radius + index
            color: Theme.shadow
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: Theme.floatingGround
        border.width: Theme.borderWidth
        border.color: Theme.border
    }
}
