import QtQuick
import QtQuick.Templates as T

import Mintaro

/// Something to be answered before all else in the card that is its parent. Escape and a press beside it close it; the keyboard
/// goes back to where it was.
T.Popup {
    id: root

    /// Hangs from the card's upper edge, as wide as the card.
    property bool hangs: false
    readonly property FocusKeeper keyboard: FocusKeeper {
    }
    readonly property Rectangle veil: Rectangle {
        parent: root.parent
        anchors.fill: parent
        visible: root.visible
        radius: Theme.cornerRadius
        color: Theme.veil
    }

    anchors.centerIn: root.hangs ? undefined : parent
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 0
    focus: true
    modal: true
    // The window's own would lie over the card's shadow too.
    dim: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAboutToShow: {
        root.keyboard.remember(root.parent.Window.activeFocusItem);
        // The toolkit's own frame has no name; the content says what it is.
        root.contentItem.parent.Accessible.ignored = true;
    }
    onClosed: root.keyboard.giveBack(Qt.PopupFocusReason)

    background: FloatingGround {
        radius: root.hangs ? Theme.cornerRadius : Theme.groupRadius
        shadowed: !root.hangs
    }
}
