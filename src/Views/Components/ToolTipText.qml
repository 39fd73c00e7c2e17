import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A tooltip that stays inside the window of what it explains.
T.ToolTip {
    id: root

    property bool shown: false

    visible: root.shown && root.text !== ""
    delay: 700
    x: (parent ? parent.width : 0) - width
    y: -height - 2
    implicitWidth: contentItem.implicitWidth + 12
    implicitHeight: contentItem.implicitHeight + 6
    margins: Theme.popupMargin

    contentItem: Text {
        text: root.text
        font: Theme.caption2
        color: Theme.primary
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        color: Theme.background
        border.color: Theme.border
        radius: Theme.controlRadius
    }
}
