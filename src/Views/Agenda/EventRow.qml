import QtQuick

import Mintaro

Item {
    id: root

    required property string title
    required property string timeRange
    required property string location
    required property color calendarColor
    required property string service
    required property string serviceSymbol
    required property string accessibleName
    /// Its button can be reached by Tab.
    required property bool isCurrent

    readonly property bool hasMeeting: root.service !== ""

    signal joinRequested
    /// At that point of the row.
    signal menuRequested(point where)
    signal menuRequestedByKey

    implicitHeight: content.implicitHeight + 8
    Accessible.role: Accessible.ListItem
    Accessible.name: root.accessibleName
    Accessible.focusable: true
    // What has the keyboard cannot stop being reached.
    activeFocusOnTab: root.isCurrent || root.activeFocus
    Keys.onSpacePressed: root.menuRequestedByKey()
    Keys.onReturnPressed: root.menuRequestedByKey()
    Keys.onEnterPressed: root.menuRequestedByKey()

    FocusRing {
        shown: root.activeFocus
        gap: -2
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => root.menuRequested(eventPoint.position)
    }
    Rectangle {
        id: bar
        anchors { left: parent.left; leftMargin: Theme.margin; top: content.top; bottom: content.bottom }
        width: 4
        radius: Theme.barRadius
        color: root.calendarColor
    }
    Column {
        id: content
        anchors { left: bar.right; leftMargin: 8; right: join.left; rightMargin: root.hasMeeting ? 8 : 0; verticalCenter: parent.verticalCenter }
        spacing: 2

        Text {
            width: parent.width
            text: root.title
            font: Theme.callout
            color: Theme.primary
            textFormat: Text.PlainText
            // Titles of all scripts begin at the colour bar.
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            maximumLineCount: 1
        }
        Row {
            spacing: 4

            Text {
                text: root.timeRange
                font: Theme.caption
                color: Theme.secondary
                anchors.verticalCenter: parent.verticalCenter
            }
            MeetingBadge {
                visible: root.hasMeeting
                service: root.service
                serviceSymbol: root.serviceSymbol
                anchors.verticalCenter: parent.verticalCenter
            }
        }
        Text {
            width: parent.width
            visible: root.location !== ""
            text: root.location
            font: Theme.caption2
            color: Theme.tertiary
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            maximumLineCount: 1
        }
    }
    PlainButton {
        id: join
        accessibleName: qsTrId("Join %@").arg(root.service)
        visible: root.hasMeeting
        width: root.hasMeeting ? implicitWidth : 0
        padding: 6
        focusPolicy: root.isCurrent || join.activeFocus ? Qt.TabFocus : Qt.NoFocus
        anchors { right: parent.right; rightMargin: root.hasMeeting ? Theme.margin - padding : Theme.margin; verticalCenter: parent.verticalCenter }
        contentItem: Symbol {
            name: root.serviceSymbol
            color: Theme.blue
            size: 14
        }
        onClicked: root.joinRequested()

        ToolTipText {
            text: join.accessibleName
            shown: join.hovered || join.visualFocus
        }
    }
}
