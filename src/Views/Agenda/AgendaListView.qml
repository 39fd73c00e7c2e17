import QtQuick

import Mintaro

Item {
    id: root

    required property AppState appState

    AgendaListViewController {
        id: controller
        appState: root.appState
        onDayShown: list.showFrom(0)
    }

    EventList {
        id: list
        anchors.fill: parent
        visible: controller.state === AgendaListViewController.List
        controller: controller
        accessibleName: qsTrId("Agenda")
    }
    AgendaNotice {
        visible: controller.state === AgendaListViewController.Empty
        width: parent.width
        symbol: "calendar.badge.checkmark"
        text: qsTrId("No upcoming events")
        spacing: 4
    }
    AgendaNotice {
        visible: controller.state === AgendaListViewController.NoAccess
        width: parent.width
        symbol: "lock.shield"
        text: qsTrId("Calendar access not granted")
        spacing: 6

        PlainButton {
            id: settings
            anchors.horizontalCenter: parent.horizontalCenter
            accessibleName: qsTrId("Open Privacy Settings")
            padding: 5
            leftPadding: 10
            rightPadding: 10
            contentItem: Text {
                text: settings.accessibleName
                font: Theme.caption
                color: Theme.accentText
            }
            onClicked: controller.openPrivacySettings()
        }
    }
}
