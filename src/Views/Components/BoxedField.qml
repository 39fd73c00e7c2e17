import QtQuick

import Mintaro

/// A line to type in, with a box of its own.
LineField {
    id: root

    implicitWidth: 120
    implicitHeight: Theme.controlHeight
    leftPadding: 8
    rightPadding: 8

    background: Rectangle {
        radius: Theme.controlRadius
        color: Theme.controlFace
        border.width: Theme.borderWidth
        border.color: Theme.border

        FocusRing {
            shown: root.activeFocus
            gap: 0
        }
    }
}
