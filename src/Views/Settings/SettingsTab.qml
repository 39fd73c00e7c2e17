import QtQuick
import QtQuick.Templates as T

import Mintaro

/// One of the tabs in the head of the settings.
T.TabButton {
    id: root

    required property string title
    required property string symbol
    required property bool isCurrent

    readonly property color ink: root.isCurrent ? Theme.accentText : Theme.secondary

    implicitWidth: implicitContentWidth
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    topPadding: 6
    bottomPadding: 5
    checkable: false
    hoverEnabled: true
    focusPolicy: root.isCurrent ? Qt.StrongFocus : Qt.NoFocus
    Accessible.name: root.title
    Accessible.selectable: true
    Accessible.selected: root.isCurrent
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()

    contentItem: Column {
        spacing: 4

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: root.symbol
            size: 18
            color: root.ink
        }
        Text {
            width: parent.width
            text: root.title
            font: root.isCurrent ? Theme.tabCurrent : Theme.subheadline
            color: root.isCurrent ? Theme.accentText : Theme.primary
            textFormat: Text.PlainText
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        radius: Theme.chipRadius
        color: root.isCurrent ? Theme.hover : "transparent"

        ControlGround {
            anchors.fill: parent
            control: root
        }
    }
}
