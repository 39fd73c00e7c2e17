pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.qmlmodels

import Mintaro

/// Days with their events and reminders, walked with the arrows; each row has a menu. One row at a time can be reached by Tab, and
/// the controls in it.
Item {
    id: root

    required property EventListController controller
    required property string accessibleName

    /// What lies behind it, for the fade at its foot.
    property color ground: Theme.background

    /// Puts that row at the top, as far as the list reaches.
    function showFrom(row: int) {
        list.currentIndex = row;
        list.leaveHeading();
        list.positionViewAtIndex(row, ListView.Beginning);
    }

    /// For a model that begins anew with much the same rows.
    function keepPlace() {
        list.keptRow = list.currentIndex;
        list.keptOffset = list.contentY - list.originY;
    }

    function returnToPlace() {
        list.currentIndex = Math.min(list.keptRow, list.count - 1);
        list.leaveHeading();
        list.forceLayout();
        list.contentY = list.originY + Math.max(0, Math.min(list.keptOffset, list.contentHeight - list.height));
    }

    function takeFocus() {
        list.currentItem?.forceActiveFocus(Qt.TabFocusReason);
    }

    ListView {
        id: list

        property int keptRow: 0
        property real keptOffset: 0

        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        keyNavigationEnabled: false
        Accessible.role: Accessible.List
        Accessible.name: root.accessibleName
        Keys.onUpPressed: list.step(-1)
        Keys.onDownPressed: list.step(1)
        Keys.onMenuPressed: list.openMenuOfCurrent()
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
            if (event.accepted)
                list.openMenuOfCurrent();
        }
        onCountChanged: list.leaveHeading()
        model: root.controller
        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice {
                roleValue: EventListController.DaySection

                DaySectionHeader {
                    width: list.width
                }
            }
            DelegateChoice {
                roleValue: EventListController.Event

                EventRow {
                    id: eventRow
                    required property int index
                    required property bool isPast
                    width: list.width
                    opacity: eventRow.isPast ? Theme.pastOpacity : 1
                    isCurrent: eventRow.ListView.isCurrentItem
                    onJoinRequested: root.controller.joinMeeting(eventRow.index)
                    onMenuRequested: where => list.openMenu(eventRow.index, eventRow, where)
                    onMenuRequestedByKey: list.openMenuOfCurrent()
                }
            }
            DelegateChoice {
                roleValue: EventListController.Reminder

                ReminderAgendaRow {
                    id: reminderRow
                    required property int index
                    width: list.width
                    isCurrent: reminderRow.ListView.isCurrentItem
                    onToggled: root.controller.toggleReminder(reminderRow.index)
                    onLinkRequested: root.controller.openLink(reminderRow.index)
                    onMenuRequested: where => list.openMenu(reminderRow.index, reminderRow, where)
                }
            }
        }

        /// The keyboard never stands on a heading.
        function leaveHeading() {
            const row = root.controller.nextItem(list.currentIndex, 0);
            if (row >= 0)
                list.currentIndex = row;
        }

        /// To the next row in that direction.
        function step(by: int) {
            const row = root.controller.nextItem(list.currentIndex, by);
            if (row < 0) {
                // The first row's heading is not walked to, but seen.
                if (by < 0)
                    list.positionViewAtBeginning();
                return;
            }
            list.currentIndex = row;
            // Not below what fades out.
            const hidden = list.currentItem.y + list.currentItem.height + Theme.fadeHeight - list.contentY - list.height;
            if (hidden > 0)
                list.contentY = Math.min(list.contentY + hidden, list.originY + list.contentHeight - list.height);
            list.currentItem.forceActiveFocus(Qt.TabFocusReason);
        }

        function openMenu(row: int, item: Item, where: point) {
            list.currentIndex = row;
            menu.title = item.Accessible.name;
            if (root.controller.prepareMenu(row))
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
        entries: root.controller.menu
    }
    // Rows that go on below fade out rather than end in the middle of a letter.
    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: Theme.fadeHeight
        visible: !list.atYEnd
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Theme.clear(root.ground)
            }
            GradientStop {
                position: 1
                color: root.ground
            }
        }
    }
    ScrollIndicator {
        flickable: list
    }
}
