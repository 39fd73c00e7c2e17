import QtQuick

import Mintaro

/// Shows how much of a list is in sight, and where. It can be dragged.
Item {
    id: root

    required property Flickable flickable

    anchors { right: flickable.right; top: flickable.top; bottom: flickable.bottom; rightMargin: 2 }
    width: 5
    opacity: flickable.visibleArea.heightRatio < 1 ? 1 : 0
    Accessible.ignored: true

    Rectangle {
        width: parent.width
        radius: width / 2
        color: drag.active || hover.hovered ? Theme.secondary : Theme.press
        height: Math.max(20, root.flickable.visibleArea.heightRatio * root.height)
        y: root.flickable.visibleArea.yPosition / Math.max(0.0001, 1 - root.flickable.visibleArea.heightRatio) * (root.height - height)

        HoverHandler {
            id: hover
        }
        DragHandler {
            id: drag
            target: null
            property real startY: 0
            onActiveChanged: if (active) startY = root.flickable.contentY
            onActiveTranslationChanged: if (active) root.scrollTo(startY, activeTranslation.y)
        }
    }

    function scrollTo(from: real, translation: real) {
        const reach = root.flickable.contentHeight - root.flickable.height;
        const target = from + translation / root.height * root.flickable.contentHeight;
        root.flickable.contentY = root.flickable.originY + Math.max(0, Math.min(reach, target - root.flickable.originY));
    }
}
