import QtQuick

import Mintaro

/// Says quietly that the form holds what could not be saved, and offers to drop it.
Item {
    id: root

    signal dropped

    implicitHeight: drop.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: text.text

    Text {
        id: text
        anchors { left: parent.left; leftMargin: Theme.margin; right: drop.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
        text: qsTrId("editor.restored")
        font: Theme.caption
        color: Theme.secondary
        elide: Text.ElideRight
    }
    PlainButton {
        id: drop
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        accessibleName: qsTrId("Discard")
        // The field that has the keyboard settles first.
        focusPolicy: Qt.StrongFocus
        padding: 4
        leftPadding: 8
        rightPadding: 8
        contentItem: Text {
            text: drop.accessibleName
            font: Theme.caption
            color: Theme.accentText
        }
        onClicked: root.dropped()
    }
}
