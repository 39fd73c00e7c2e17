import QtQuick

import Mintaro

/// Sections of a form, one below the other. They scroll where they need more room than there is, and what has the keyboard
/// stays in sight.
FocusScope {
    id: root

    default property alias sections: column.data
    /// Of each section.
    readonly property real sectionWidth: root.width - 2 * Theme.margin

    readonly property Item focusItem: root.Window.activeFocusItem

    onFocusItemChanged: root.reveal(root.focusItem)

    Flickable {
        id: flickable
        anchors.fill: parent
        contentHeight: column.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height

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

    function scrollToBottom() {
        flickable.contentY = Math.max(0, flickable.contentHeight - flickable.height);
    }

    /// Scrolls so far that what has the keyboard is in sight.
    function reveal(item: Item) {
        if (!item || !root.activeFocus)
            return;
        const top = item.mapToItem(column, 0, 0).y;
        const lowest = Math.max(0, flickable.contentHeight - flickable.height);
        const wanted = Math.max(Math.min(flickable.contentY, top - Theme.margin), top + Math.min(item.height, flickable.height) + Theme.margin - flickable.height);
        flickable.contentY = Math.max(0, Math.min(lowest, wanted));
    }
}
