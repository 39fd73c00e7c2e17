import QtQuick

import Mintaro

/// Which calendars and reminder lists are shown.
FormPage {
    id: root

    required property CalendarsSettingsViewController controller

    onVisibleChanged: if (visible) root.controller.appear()
    Component.onCompleted: root.controller.appear()

    Column {
        visible: !root.controller.hasCalendarAccess
        width: root.sectionWidth
        topPadding: 8
        bottomPadding: 8
        spacing: 12

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "calendar.badge.exclamationmark"
            size: Theme.largeTitleSize
            color: Theme.secondary
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTrId("Calendar Access Required")
            font: Theme.headline
            color: Theme.primary
            textFormat: Text.PlainText
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Text {
            width: parent.width
            text: qsTrId("Mintaro needs permission to read your calendars. Grant access in System Settings.")
            font: Theme.caption
            color: Theme.secondary
            textFormat: Text.PlainText
            wrapMode: Text.WordWrap
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Text {
            width: parent.width
            visible: text !== ""
            text: root.controller.accessFailure
            font: Theme.caption
            color: Theme.red
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        PushButton {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTrId("Open Privacy Settings")
            onClicked: root.controller.openPrivacySettings()
        }
    }
    SettingsSection {
        heading: qsTrId("Calendars")

        EmptyRow {
            visible: root.controller.calendars.isEmpty
            text: qsTrId("No calendars available")
        }
        CalendarRows {
            checklist: root.controller.calendars
            onOpened: row => root.revealWithNext(row)
            indent: 18
        }
    }
    SettingsSection {
        heading: qsTrId("Reminder Lists")

        EmptyRow {
            visible: root.controller.reminderLists.isEmpty
            text: qsTrId("No reminder lists available")
        }
        CalendarRows {
            checklist: root.controller.reminderLists
        }
    }
}
