import QtQuick

import Mintaro

Item {
    id: root

    required property string title
    required property color calendarColor
    required property bool isCompleted
    required property string link
    required property string accessibleName
    /// Its controls can be reached by Tab.
    required property bool isCurrent

    signal toggled
    signal linkRequested
    /// At that point of the row.
    signal menuRequested(point where)

    implicitHeight: Math.max(mark.implicitContentHeight, label.implicitHeight) + 8
    // What has the keyboard cannot stop being reached.
    activeFocusOnTab: root.isCurrent || root.activeFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: root.accessibleName
    Accessible.focusable: true
    Keys.onSpacePressed: root.toggled()
    Keys.onReturnPressed: root.toggled()
    Keys.onEnterPressed: root.toggled()

    FocusRing {
        shown: root.activeFocus
        gap: -2
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => root.menuRequested(eventPoint.position)
    }
    CheckMark {
        id: mark
        accessibleName: root.title
        checked: root.isCompleted
        color: root.calendarColor
        anchors { left: parent.left; leftMargin: Theme.margin - padding; verticalCenter: parent.verticalCenter }
        focusPolicy: root.isCurrent || mark.activeFocus ? Qt.TabFocus : Qt.NoFocus
        onClicked: root.toggled()
    }
    Text {
        id: label
        anchors { left: mark.right; leftMargin: 8 - mark.padding; right: open.left; verticalCenter: parent.verticalCenter }
        text: root.title
        font.family: Theme.callout.family
        font.pixelSize: Theme.callout.pixelSize
        font.strikeout: root.isCompleted
        color: root.isCompleted ? Theme.secondary : Theme.primary
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        maximumLineCount: 1
    }
    PlainButton {
        id: open
        accessibleName: qsTrId("Open Link")
        visible: root.link !== ""
        width: visible ? implicitWidth : 0
        padding: 6
        anchors { right: parent.right; rightMargin: visible ? Theme.margin - padding : Theme.margin; verticalCenter: parent.verticalCenter }
        focusPolicy: root.isCurrent || open.activeFocus ? Qt.TabFocus : Qt.NoFocus
        contentItem: FaviconImage {
            url: root.link
        }
        onClicked: root.linkRequested()

        ToolTipText {
            text: open.accessibleName
            shown: open.hovered || open.visualFocus
        }
    }
}
