import QtQuick

import Mintaro

/// Says that what it lies around has the keyboard.
Rectangle {
    id: root

    required property bool shown
    /// How far outside of what it surrounds.
    property int gap: 3

    anchors { fill: parent; margins: -root.gap }
    visible: root.shown
    radius: Theme.controlRadius + Math.max(0, root.gap)
    color: "transparent"
    border.width: Theme.focusRingWidth
    border.color: Theme.accentText
}
