import QtQuick
import QtQuick.Templates as T

import Mintaro

/// Chooses a number of a range by moving a handle from step to step. `moved` tells of the user's changes only.
T.Slider {
    id: root

    required property string accessibleName

    implicitWidth: 160
    implicitHeight: Theme.controlHeight
    stepSize: 1
    snapMode: T.Slider.SnapAlways
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    opacity: root.enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.Slider
    Accessible.name: root.accessibleName
    Accessible.onIncreaseAction: root.step(1)
    Accessible.onDecreaseAction: root.step(-1)

    background: Rectangle {
        y: (root.height - height) / 2
        width: root.width
        height: 4
        radius: 2
        color: Theme.switchTrack

        Rectangle {
            width: root.handle.x + root.handle.width / 2
            height: parent.height
            radius: parent.radius
            color: Theme.accentFill
        }
    }
    handle: Rectangle {
        x: root.visualPosition * (root.width - width)
        y: (root.height - height) / 2
        width: 16
        height: 16
        radius: 8
        color: Theme.onAccent
        border.width: Theme.borderWidth
        border.color: Theme.border

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: root.pressed ? Theme.press : root.hovered ? Theme.hover : "transparent"
        }
        FocusRing {
            shown: root.visualFocus
            radius: height / 2
        }
    }

    function step(by: int) {
        if (by > 0)
            root.increase();
        else
            root.decrease();
        root.moved();
    }
}
