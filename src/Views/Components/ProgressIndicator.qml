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
            required property int index
            width: 4
            height: 4
            radius: 2
            color: Theme.secondary
            opacity: 0.2 + 0.1 * index
            x: root.width / 2 - 2 + 9 * Math.cos(index * Math.PI / 4)
            y: root.height / 2 - 2 + 9 * Math.sin(index * Math.PI / 4)
        }
    }
    RotationAnimation on rotation {
        from: 0
        to: 360
        duration: 1000
        loops: Animation.Infinite
        running: root.visible
    }
}
