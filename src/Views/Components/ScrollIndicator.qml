import QtQuick

import Mintaro

/// Shows how much of a list is in sight, and where. It can be dragged. With it a mouse's wheel scrolls by steps: the toolkit's own
/// goes on for a second, and who clicks meanwhile hits another row than the one aimed at.
Item {
    id: root

    required property Flickable flickable

    anchors { right: flickable.right; top: flickable.top; bottom: flickable.bottom; rightMargin: 2 }
    width: 5
    opacity: flickable.visibleArea.heightRatio < 1 ? 1 : 0
    Accessible.ignored: true

    WheelHandler {
        parent: root.flickable
        target: null
        enabled: root.opacity > 0
        onWheel: event => root.scroll(-event.angleDelta.y / 120 * Theme.wheelStep)
    }
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
        root.place(from + translation / root.height * root.flickable.contentHeight);
    }

    function scroll(by: real) {
        root.place(root.flickable.contentY + by);
    }

    function place(y: real) {
        const lowest = root.flickable.originY - root.flickable.topMargin;
        const reach = root.flickable.originY + root.flickable.contentHeight + root.flickable.bottomMargin - root.flickable.height;
        root.flickable.contentY = Math.max(lowest, Math.min(reach, y));
    }
}
