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

        property bool wasAtBeginning: true
        property int keptRow: 0
        property real keptOffset: 0

        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        // It would follow the current row also where only a refresh moved it.
        highlightFollowsCurrentItem: false
        onActiveFocusChanged: if (list.activeFocus) list.positionViewAtIndex(list.currentIndex, ListView.Contain)
        keyNavigationEnabled: false
        Accessible.role: Accessible.List
        Accessible.name: root.accessibleName
        Keys.onUpPressed: list.step(-1)
        Keys.onDownPressed: list.step(1)
        Keys.onMenuPressed: list.openMenuOfCurrent()
        Keys.onPressed: event => {
            const by = event.modifiers === Qt.NoModifier ? list.rowsToGo(event.key) : 0;
            const opensMenu = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
            if (by !== 0)
                list.goTo(list.currentIndex + by);
            else if (opensMenu)
                list.openMenuOfCurrent();
            event.accepted = by !== 0 || opensMenu;
        }
        onCountChanged: {
            list.leaveHeading();
            // By itself it keeps what it showed in its place, and what is new above would be out of sight.
            if (list.wasAtBeginning)
                list.positionViewAtBeginning();
        }
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

        /// What the keys for the ends and for pages go, headings counted.
        function rowsToGo(key: int): int {
            const page = 5;
            switch (key) {
            case Qt.Key_Home:
                return -list.count;
            case Qt.Key_End:
                return list.count;
            case Qt.Key_PageUp:
                return -page;
            case Qt.Key_PageDown:
                return page;
            }
            return 0;
        }

        /// To the next row in that direction.
        function step(by: int) {
            const row = root.controller.nextItem(list.currentIndex, by);
            if (row >= 0)
                list.moveTo(row);
            else if (by < 0)
                list.positionViewAtBeginning(); // the first row's heading is not walked to, but seen
        }

        /// To the row there, as far as there is one.
        function goTo(row: int) {
            const within = Math.max(0, Math.min(row, list.count - 1));
            const item = root.controller.nextItem(within, 0);
            list.moveTo(item >= 0 ? item : root.controller.nextItem(within, -1));
            if (within === 0)
                list.positionViewAtBeginning();
        }

        function moveTo(row: int) {
            list.currentIndex = row;
            list.positionViewAtIndex(row, ListView.Contain);
            // Not below what fades out.
            const hidden = list.currentItem.y + list.currentItem.height + Theme.fadeHeight - list.contentY - list.height;
            if (hidden > 0)
                list.contentY = Math.min(list.contentY + hidden, list.originY + list.contentHeight - list.height);
            list.currentItem.forceActiveFocus(Qt.TabFocusReason);
        }

        function openMenu(row: int, item: Item, where: point) {
            list.currentIndex = row;
            menu.title = item.Accessible.name;
            // Not the row's: it may go while the menu is open.
            const place = item.mapToItem(root, where.x, where.y);
            if (root.controller.prepareMenu(row))
                menu.popup(root, place.x, place.y);
        }

        function openMenuOfCurrent() {
            if (!list.currentItem)
                return;
            list.openMenu(list.currentIndex, list.currentItem, Qt.point(Theme.margin, list.currentItem.height));
            menu.currentIndex = 0;
        }
    }
    Connections {
        target: root.controller

        function onRowsAboutToBeInserted() {
            list.wasAtBeginning = list.atYBeginning;
        }

        function onRowsAboutToBeRemoved() {
            list.wasAtBeginning = list.atYBeginning;
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
