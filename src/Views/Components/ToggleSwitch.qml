import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A small switch. `toggled` tells of the user's changes only.
T.Switch {
    id: root

    required property string accessibleName

    implicitWidth: 32
    implicitHeight: 18
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    opacity: root.enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.CheckBox
    Accessible.name: root.accessibleName
    Accessible.onToggleAction: root.flip()
    Accessible.onPressAction: root.flip()
    Keys.onReturnPressed: root.flip()
    Keys.onEnterPressed: root.flip()

    indicator: Rectangle {
        width: root.width
        height: root.height
        radius: height / 2
        color: root.checked ? Theme.accentFill : Theme.switchTrack

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: root.pressed ? Theme.press : root.hovered ? Theme.hover : "transparent"
        }
        Rectangle {
            x: 2 + root.visualPosition * (parent.width - width - 4)
            y: 2
            width: height
            height: parent.height - 4
            radius: height / 2
            color: Theme.onAccent

            Behavior on x {
                enabled: !root.pressed

                NumberAnimation {
                    duration: Theme.quickAnimation
                }
            }
        }
        FocusRing {
            shown: root.visualFocus
            radius: height / 2
        }
    }

    function flip() {
        root.toggle();
        root.toggled();
    }
}
