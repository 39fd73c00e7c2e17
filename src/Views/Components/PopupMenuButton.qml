import QtQuick

import Mintaro

/// Shows one of several texts and lets the user choose another from a menu. It only tells of the choice: what it shows
/// stays `currentIndex`, which its owner sets.
PlainButton {
    id: root

    required property list<string> texts
    /// #rrggbb of the dot before each text; empty for no dots.
    property alias colors: menu.colors
    /// -1: none of them.
    property int currentIndex: -1
    /// What is longer is cut off.
    property real longestText: 160
    readonly property string currentText: root.texts[root.currentIndex] ?? ""

    signal activated(int index)

    implicitHeight: Theme.controlHeight
    leftPadding: 8
    rightPadding: 0
    rightInset: -6
    focusPolicy: Qt.StrongFocus
    opacity: root.enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.ComboBox
    Accessible.description: root.currentText
    onClicked: menu.open()
    Keys.onDownPressed: menu.open()
    Keys.onUpPressed: menu.open()

    contentItem: Row {
        spacing: 6
        layoutDirection: Qt.RightToLeft

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron.up.chevron.down"
            size: 12
            color: Theme.secondary
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.longestText)
            text: root.currentText
            font: Theme.body
            color: Theme.primary
            textFormat: Text.PlainText
            elide: Text.ElideRight
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.currentIndex >= 0 && root.colors.length > root.currentIndex
            width: 8
            height: 8
            radius: 4
            color: menu.colorAt(root.currentIndex)
        }
    }

    PopupMenu {
        id: menu
        texts: root.texts
        markedIndex: root.currentIndex
        accessibleName: root.accessibleName
        onPicked: index => root.activated(index)
    }
}
