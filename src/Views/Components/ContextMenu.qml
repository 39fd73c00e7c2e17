pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A menu of actions inside the window. It opens with its first entry under the keyboard's hand.
T.Menu {
    id: root

    required property ContextMenuModel entries

    readonly property real textWidth: Math.max(0, ...root.widths)
    property list<real> widths

    implicitWidth: Math.max(120, root.contentWidth) + root.leftPadding + root.rightPadding
    implicitHeight: root.contentHeight + root.topPadding + root.bottomPadding
    margins: 4
    padding: 4
    modal: true
    dim: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    background: FloatingGround {
    }
    contentItem: ListView {
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: false
        Accessible.role: Accessible.PopupMenu
    }

    Repeater {
        model: root.entries

        ContextMenuEntry {
            required property int index
            onTriggered: root.entries.trigger(index)
        }
    }
}
