import QtQuick

import Mintaro

/// Sections of a form, one below the other. They scroll where they need more room than there is, and what has the keyboard
/// stays in sight.
FocusScope {
    id: root

    default property alias sections: column.data
    /// Of each section.
    readonly property real sectionWidth: root.width - 2 * Theme.margin

    readonly property real lowest: Math.max(0, flickable.contentHeight - flickable.height)
    readonly property Item focusItem: root.Window.activeFocusItem

    onFocusItemChanged: root.reveal(root.focusItem)
    Keys.onPressed: event => root.turnPage(event)

    Flickable {
        id: flickable
        anchors.fill: parent
        contentHeight: column.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        onContentHeightChanged: {
            if (!flickable.opened)
                return;
            const top = flickable.opened.mapToItem(column, 0, 0).y;
            flickable.contentY = Math.max(flickable.contentY, Math.min(root.lowest, top + 4 * Theme.formRowHeight - flickable.height));
            flickable.opened = null;
        }

        property Item opened: null

        Column {
            id: column
            width: parent.width
            padding: Theme.margin
            spacing: Theme.margin
        }
    }
    ScrollIndicator {
        flickable: flickable
    }

    function turnPage(event) {
        const page = flickable.height - Theme.formRowHeight;
        const steps = new Map([[Qt.Key_PageDown, page], [Qt.Key_PageUp, -page], [Qt.Key_End, flickable.contentHeight], [Qt.Key_Home, -flickable.contentHeight]]);
        if (!steps.has(event.key))
            return;
        flickable.contentY = Math.max(0, Math.min(root.lowest, flickable.contentY + steps.get(event.key)));
        event.accepted = true;
    }

    /// Has the rows that are about to come below it in sight, as far as there is room.
    function revealWithNext(row: Item) {
        flickable.opened = row;
    }

    function scrollToBottom() {
        flickable.contentY = root.lowest;
    }

    /// Scrolls so far that what has the keyboard is in sight, and a heading right above it.
    function reveal(item: Item) {
        if (!item || !root.activeFocus)
            return;
        const top = item.mapToItem(column, 0, 0).y;
        const above = Theme.margin + Theme.formRowHeight;
        const wanted = Math.max(Math.min(flickable.contentY, top - above), top + Math.min(item.height, flickable.height) + Theme.margin - flickable.height);
        flickable.contentY = Math.max(0, Math.min(root.lowest, wanted));
    }
}
