pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

Item {
    id: root

    required property AppState appState

    readonly property real weekNumberWidth: controller.showWeekNumbers ? Theme.weekNumberWidth : 0
    readonly property real columnWidth: (root.width - root.weekNumberWidth) / 7

    implicitHeight: header.height + 4 + 6 * Theme.cellHeight + 5 * 2

    CalendarGridViewController {
        id: controller
        appState: root.appState
        onMonthShown: direction => slide.play(direction)
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
        Grid {
            id: cells
            x: root.weekNumberWidth
            columns: 7
            rowSpacing: 2

            Repeater {
                model: root.appState.calendarVM

                CalendarDayCell {
                    width: root.columnWidth
                    height: Theme.cellHeight
                    onClicked: controller.selectDay(index)
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
