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
        highlightMoveDuration: 0
        Accessible.role: Accessible.List
        Accessible.name: qsTrId("Agenda")
        Keys.onUpPressed: list.step(-1)
        Keys.onDownPressed: list.step(1)
        Keys.onMenuPressed: list.openMenuOfCurrent()
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
            if (event.accepted)
                list.openMenuOfCurrent();
        }
        onCountChanged: list.leaveHeading()
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
                    activeFocusOnTab: eventRow.ListView.isCurrentItem || eventRow.activeFocus
                    onJoinRequested: controller.joinMeeting(eventRow.index)
                    onMenuRequested: where => list.openMenu(eventRow.index, eventRow, where)
                }
            }
            DelegateChoice {
                roleValue: AgendaListViewController.Reminder

                ReminderAgendaRow {
                    id: reminderRow
                    width: list.width
                    activeFocusOnTab: reminderRow.ListView.isCurrentItem || reminderRow.activeFocus
                }
            }
        }

        /// The keyboard never stands on a heading.
        function leaveHeading() {
            const row = controller.nextItem(list.currentIndex, 0);
            if (row >= 0)
                list.currentIndex = row;
        }

        /// To the next row in that direction.
        function step(by: int) {
            const row = controller.nextItem(list.currentIndex, by);
            if (row < 0)
                return;
            list.currentIndex = row;
            // Not below what fades out.
            const hidden = list.currentItem.y + list.currentItem.height + Theme.fadeHeight - list.contentY - list.height;
            if (hidden > 0)
                list.contentY = Math.min(list.contentY + hidden, list.originY + list.contentHeight - list.height);
        }

        function openMenu(row: int, item: Item, where: point) {
            list.currentIndex = row;
            if (controller.prepareMenu(row))
                menu.popup(item, where.x, where.y);
        }

        function openMenuOfCurrent() {
            if (!list.currentItem)
                return;
            list.openMenu(list.currentIndex, list.currentItem, Qt.point(Theme.margin, list.currentItem.height));
            menu.currentIndex = 0;
        }
    }
    ContextMenu {
        id: menu
        entries: controller.menu
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
