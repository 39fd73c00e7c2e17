pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A menu of actions inside the window.
T.Menu {
    id: root

    required property ContextMenuModel entries
    readonly property FocusKeeper keyboard: FocusKeeper {
    }
    readonly property bool isWindowShown: root.parent ? root.parent.Window.visibility !== Window.Hidden : false

    implicitWidth: Math.max(120, root.widestEntry()) + root.leftPadding + root.rightPadding
    implicitHeight: root.contentHeight + root.topPadding + root.bottomPadding
    margins: Theme.popupMargin
    padding: 4
    modal: true
    dim: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAboutToShow: {
        root.keyboard.remember(root.parent.Window.activeFocusItem);
        root.contentItem.parent.Accessible.ignored = true;
    }
    onClosed: root.keyboard.giveBack(Qt.PopupFocusReason)
    onIsWindowShownChanged: if (!root.isWindowShown) root.close()

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
