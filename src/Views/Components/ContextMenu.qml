pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A menu of actions inside the window.
T.Menu {
    id: root

    required property ContextMenuModel entries
    /// What had the keyboard before.
    property Item opener: null

    implicitWidth: Math.max(120, root.widestEntry()) + root.leftPadding + root.rightPadding
    implicitHeight: root.contentHeight + root.topPadding + root.bottomPadding
    margins: Theme.popupMargin
    padding: 4
    modal: true
    dim: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAboutToShow: {
        root.opener = root.parent.Window.activeFocusItem;
        root.contentItem.parent.Accessible.ignored = true;
    }
    onClosed: root.opener?.forceActiveFocus(Qt.PopupFocusReason)

    background: FloatingGround {
    }
    contentItem: ListView {
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: false
        Accessible.role: Accessible.PopupMenu
        Accessible.name: root.title
    }

    function widestEntry(): real {
        let widest = 0;
        for (let i = 0; i < root.count; ++i)
            widest = Math.max(widest, root.itemAt(i).implicitWidth);
        return widest;
    }

    Repeater {
        model: root.entries

        ContextMenuEntry {
            required property int index
            onTriggered: root.entries.trigger(index)
        }
    }
}
