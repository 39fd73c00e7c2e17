import QtQuick
import QtQuick.Templates as T

import Mintaro

/// The quiet ground of a control without a face of its own, which shows hover, press and keyboard focus.
Rectangle {
    id: root

    required property T.AbstractButton control

    radius: Theme.controlRadius
    color: root.control.pressed ? Theme.press : root.control.hovered ? Theme.hover : "transparent"
    border.width: root.control.visualFocus ? 2 : 0
    border.color: Theme.accentText
}
