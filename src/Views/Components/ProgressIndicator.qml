pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

/// A turning arc of dots. It costs frames only while it is shown.
Item {
    id: root

    implicitWidth: 22
    implicitHeight: 22
    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTrId("Loading")

    Repeater {
        model: 8

        Rectangle {
            id: dot
            required property int index
            readonly property real angle: dot.index * Math.PI / 4
            width: 4
            height: 4
            radius: 2
            color: Theme.secondary
            opacity: 0.2 + 0.1 * dot.index
            x: root.width / 2 - 2 + 9 * Math.cos(dot.angle)
            y: root.height / 2 - 2 + 9 * Math.sin(dot.angle)
        }
    }
    RotationAnimation on rotation {
        from: 0
        to: 360
        duration: 1000
        loops: Animation.Infinite
        running: root.visible && root.Window.visibility !== Window.Hidden
    }
}
