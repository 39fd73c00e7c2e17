pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Mintaro

FocusScope {
    id: root

    required property AppState appState

    readonly property real weekNumberWidth: controller.showWeekNumbers ? Theme.weekNumberWidth : 0
    readonly property real columnWidth: (root.width - root.weekNumberWidth) / 7

    implicitHeight: header.height + 4 + 6 * Theme.cellHeight + 5 * 2
    Keys.onLeftPressed: cells.moveCursor(-1)
    Keys.onRightPressed: cells.moveCursor(1)
    Keys.onUpPressed: cells.moveCursor(-7)
    Keys.onDownPressed: cells.moveCursor(7)

    CalendarGridViewController {
        id: controller
        appState: root.appState
        onMonthShown: direction => slide.play(direction)
        onCursorIndexChanged: cells.focusCursor((cells.Window.activeFocusItem as T.Control)?.visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason)
    }

    DragHandler {
        target: null
        yAxis.enabled: false
        // Below it a press is a tap, however unsteady.
        dragThreshold: 50
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        onActiveChanged: if (!active) controller.endSwipe(centroid.scenePosition.x - centroid.scenePressPosition.x)
    }

    Row {
        id: header
        height: 13

        Text {
            width: Theme.weekNumberWidth
            visible: controller.showWeekNumbers
            text: qsTrId("W")
            font: Theme.caption2
            color: Theme.tertiary
            horizontalAlignment: Text.AlignHCenter
        }
        Repeater {
            model: controller.weekdaySymbols

            Text {
                required property string modelData
                width: root.columnWidth
                horizontalAlignment: Text.AlignHCenter
                text: modelData
                font: Theme.caption2
                color: Theme.secondary
            }
        }
    }

    ProgressIndicator {
        visible: root.appState.calendarVM.isEmpty
        anchors.horizontalCenter: parent.horizontalCenter
        y: header.height + (200 - height) / 2
    }

    Item {
        id: grid
        y: header.height + 4
        width: root.width
        height: root.height - y

        Column {
            spacing: 2
            visible: controller.showWeekNumbers

            Repeater {
                model: root.appState.calendarVM.weekNumbers

                Item {
                    id: week
                    required property int modelData
                    width: Theme.weekNumberWidth
                    height: Theme.cellHeight

                    // On one line with the days' numbers, which leave room for dots below them.
                    Text {
                        anchors.centerIn: parent
                        anchors.verticalCenterOffset: -Theme.dotsHeight / 2
                        text: week.modelData
                        font: Theme.caption2
                        color: Theme.tertiary
                    }
                }
            }
        }
        FocusScope {
            id: cells
            x: root.weekNumberWidth
            width: 7 * root.columnWidth
            height: grid.height
            focus: true

            function moveCursor(by: int) {
                controller.moveCursor(by);
                cells.focusCursor(Qt.TabFocusReason);
            }

            /// Where the keyboard stands is shown once somebody uses it.
            function focusCursor(reason: int) {
                const day = days.itemAt(controller.cursorIndex);
                if (!day)
                    return;
                if (cells.activeFocus)
                    day.forceActiveFocus(reason);
                else
                    day.focus = true;
                day.focusReason = reason;
            }

            Grid {
                columns: 7
                rowSpacing: 2

                Repeater {
                    id: days
                    model: root.appState.calendarVM
                    onItemAdded: index => {
                        if (index === controller.cursorIndex)
                            cells.focusCursor(Qt.OtherFocusReason);
                    }

                    CalendarDayCell {
                        id: day
                        width: root.columnWidth
                        height: Theme.cellHeight
                        // The arrows lead to the others.
                        focusPolicy: day.index === controller.cursorIndex || day.activeFocus ? Qt.TabFocus : Qt.NoFocus
                        onClicked: controller.selectDay(day.index)
                    }
                }
            }
        }
    }

    ParallelAnimation {
        id: slide
        property int direction: 1

        NumberAnimation {
            target: grid
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.monthAnimation
            easing.type: Easing.InOutQuad
        }
        NumberAnimation {
            target: grid
            property: "x"
            from: slide.direction * 16
            to: 0
            duration: Theme.monthAnimation
            easing.type: Easing.InOutQuad
        }

        function play(direction: int) {
            slide.direction = direction;
            slide.restart();
        }
    }
}
