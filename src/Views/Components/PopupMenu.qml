pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A menu of texts inside the window, with one of them marked. It opens with the marked row over its parent.
T.Popup {
    id: root

    required property list<string> texts
    /// #rrggbb of the dot before each text; empty for no dots.
    property list<string> colors
    property int markedIndex: -1
    property string accessibleName

    signal picked(int index)

    readonly property int rowHeight: Theme.menuRowHeight
    readonly property size room: root.parent ? Qt.size(root.parent.Window.width, root.parent.Window.height) : Qt.size(0, 0)
    property string typed
    property bool isUsed: false
    /// What had the keyboard before.
    property Item opener: null
    property int closeReason: Qt.PopupFocusReason

    x: (parent ? parent.width : 0) - width
    y: -Math.max(0, root.markedIndex) * root.rowHeight - root.padding + ((parent ? parent.height : 0) - root.rowHeight) / 2
    width: Math.min(Math.max(parent ? parent.width : 0, Math.ceil(measure.width) + 58), root.room.width - 2 * margins)
    height: Math.min(root.texts.length * root.rowHeight + 2 * root.padding, root.room.height - 2 * margins)
    margins: Theme.popupMargin
    padding: 4
    focus: true
    modal: true
    dim: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAboutToShow: {
        root.isUsed = true;
        // The toolkit's own frame has no name.
        root.contentItem.parent.Accessible.ignored = true;
        root.opener = root.parent.Window.activeFocusItem;
        root.closeReason = Qt.PopupFocusReason;
        root.typed = "";
        list.currentIndex = Math.max(0, root.markedIndex);
        list.positionViewAtIndex(list.currentIndex, ListView.Contain);
        list.forceActiveFocus(Qt.PopupFocusReason);
    }

    onClosed: root.opener?.forceActiveFocus(root.closeReason)

    background: FloatingGround {
    }

    ListView {
        id: list
        anchors.fill: parent
        // Rows are made when the menu is first opened.
        model: root.isUsed ? root.texts : []
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: true
        Accessible.role: Accessible.PopupMenu
        Accessible.name: root.accessibleName
        // The window's own Escape closes more than a menu.
        Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
        Keys.onPressed: event => root.handleKey(event)

        delegate: Rectangle {
            id: row
            required property int index
            required property string modelData
            readonly property bool isCurrent: row.index === list.currentIndex
            readonly property color textColor: row.isCurrent ? Theme.onAccent : Theme.primary
            width: list.width
            height: root.rowHeight
            radius: Theme.controlRadius - 1
            color: row.isCurrent ? Theme.accentFill : "transparent"
            Accessible.role: Accessible.MenuItem
            Accessible.name: row.modelData
            Accessible.checkable: true
            Accessible.checked: row.index === root.markedIndex
            Accessible.onPressAction: root.pick(row.index)

            Symbol {
                x: 5
                anchors.verticalCenter: parent.verticalCenter
                visible: row.index === root.markedIndex
                name: "checkmark"
                size: 11
                color: row.textColor
            }
            Rectangle {
                id: dot
                x: 22
                anchors.verticalCenter: parent.verticalCenter
                visible: root.colors.length > row.index
                width: 8
                height: 8
                radius: 4
                color: root.colorAt(row.index)
                border.width: row.isCurrent ? 1 : 0
                border.color: Theme.onAccent
            }
            Text {
                anchors { left: parent.left; leftMargin: dot.visible ? 36 : 22; right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
                text: row.modelData
                font: Theme.body
                color: row.textColor
                textFormat: Text.PlainText
                elide: Text.ElideRight
                Accessible.ignored: true
            }
            HoverHandler {
                onHoveredChanged: if (hovered) list.currentIndex = row.index
            }
            TapHandler {
                onTapped: root.pick(row.index)
            }
        }

        ScrollIndicator {
            parent: list
            flickable: list
        }
    }

    TextMetrics {
        id: measure
        font: Theme.body
        text: root.longestText()
    }
    Timer {
        id: pause
        interval: 1000
        onTriggered: root.typed = ""
    }

    function pick(index: int) {
        root.close();
        root.picked(index);
    }

    function handleKey(event) {
        // Then the ring is to show where the keyboard went back to.
        root.closeReason = Qt.ShortcutFocusReason;
        event.accepted = true;
        if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter || (event.key === Qt.Key_Space && root.typed === ""))
            root.pick(list.currentIndex);
        else if (event.key === Qt.Key_Home)
            list.currentIndex = 0;
        else if (event.key === Qt.Key_End)
            list.currentIndex = list.count - 1;
        else if (event.key === Qt.Key_Escape)
            root.close();
        else if (event.text >= " " && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier)))
            root.jump(event.text);
        else
            event.accepted = event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab;
    }

    /// To the row that begins with what was typed without a pause.
    function jump(text: string) {
        root.typed += text.toLowerCase();
        pause.restart();
        for (let i = 0; i < root.texts.length; ++i) {
            if (root.texts[i].toLowerCase().startsWith(root.typed)) {
                list.currentIndex = i;
                return;
            }
        }
    }

    function colorAt(index: int): string {
        return index >= 0 && index < root.colors.length ? root.colors[index] : "transparent";
    }

    function longestText(): string {
        let longest = "";
        for (let i = 0; i < root.texts.length; ++i) {
            if (root.texts[i].length > longest.length)
                longest = root.texts[i];
        }
        return longest;
    }
}
