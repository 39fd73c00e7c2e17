pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.qmlmodels

import Mintaro

Item {
    id: root

    required property AppState appState

    AgendaListViewController {
        id: controller
        appState: root.appState
    }

    ListView {
        id: list
        anchors.fill: parent
        clip: true
        visible: controller.state === AgendaListViewController.List
        boundsBehavior: Flickable.StopAtBounds
        model: controller
        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice {
                roleValue: AgendaListViewController.DaySection

                DaySectionHeader {
                    width: list.width
                }
            }
            DelegateChoice {
                roleValue: AgendaListViewController.Event

                EventRow {
                    id: eventRow
                    required property int index
                    required property bool isPast
                    width: list.width
                    opacity: eventRow.isPast ? Theme.pastOpacity : 1
                    onJoinRequested: controller.joinMeeting(eventRow.index)
                }
            }
            DelegateChoice {
                roleValue: AgendaListViewController.Reminder

                ReminderAgendaRow {
                    width: list.width
                }
            }
        }
    }
    // Rows that go on below fade out rather than end in the middle of a letter.
    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: Theme.fadeHeight
        visible: list.visible && !list.atYEnd
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Theme.clearBackground
            }
            GradientStop {
                position: 1
                color: Theme.background
            }
        }
    }
    ScrollIndicator {
        flickable: list
        visible: list.visible
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
