pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A month to pick a day from, inside the window.
T.Popup {
    id: root

    required property AppState appState

    signal picked(var day) // a Date, for C++

    readonly property int cellSize: 28
    /// What had the keyboard before.
    property Item opener: null
    property int closeReason: Qt.PopupFocusReason

    x: (parent ? parent.width : 0) - width
    y: (parent ? parent.height : 0) + 4
    implicitWidth: contentWidth + 2 * padding
    implicitHeight: contentHeight + 2 * padding
    margins: Theme.popupMargin
    padding: 8
    focus: true
    modal: true
    dim: false
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    background: FloatingGround {
        radius: Theme.groupRadius
    }

    contentWidth: 7 * root.cellSize
    contentHeight: column.implicitHeight

    FocusScope {
        anchors.fill: parent
        focus: true

        MonthPopupController {
            id: controller
            appState: root.appState
        }
        CalendarGridViewController {
            id: header
            appState: root.appState
        }
        Column {
            id: column

            Item {
                width: 7 * root.cellSize
                height: 28

                Text {
                    anchors.centerIn: parent
                    text: controller.title
                    font: Theme.headline
                    color: Theme.primary
                }
                PlainButton {
                    accessibleName: qsTrId("Previous Month")
                    focusPolicy: Qt.NoFocus
                    padding: 7
                    contentItem: Symbol {
                        name: "chevron.left"
                        size: 12
                    }
                    onClicked: controller.moveByMonths(-1)
                }
                PlainButton {
                    accessibleName: qsTrId("Next Month")
                    focusPolicy: Qt.NoFocus
                    padding: 7
                    anchors.right: parent.right
                    contentItem: Symbol {
                        name: "chevron.right"
                        size: 12
                    }
                    onClicked: controller.moveByMonths(1)
                }
            }
            Row {
                Repeater {
                    model: header.weekdaySymbols

                    Text {
                        required property string modelData
                        width: root.cellSize
                        height: 18
                        text: modelData
                        font: Theme.caption2
                        color: Theme.secondary
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                    }
                }
            }
            Grid {
                id: grid
                columns: 7
                focus: true
                Accessible.role: Accessible.Table
                Accessible.name: controller.title
                // The window's own Escape closes more than this.
                Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
                Keys.onPressed: event => root.handleKey(event)

                Repeater {
                    model: controller.month

                    MonthPopupCell {
                        width: root.cellSize
                        height: root.cellSize
                        onClicked: {
                            controller.highlight(index);
                            root.pick();
                        }
                    }
                }
            }
        }
    }

    onClosed: root.opener?.forceActiveFocus(root.closeReason)

    function openAt(day: var) {
        root.opener = root.parent.Window.activeFocusItem;
        root.closeReason = Qt.PopupFocusReason;
        controller.highlightedDay = day;
        root.open();
        grid.forceActiveFocus(Qt.PopupFocusReason);
    }

    function pick() {
        root.close();
        root.picked(controller.highlightedDay);
    }

    function handleKey(event) {
        // Then the ring is to show where the keyboard went back to.
        root.closeReason = Qt.ShortcutFocusReason;
        event.accepted = true;
        if (event.key === Qt.Key_Left)
            controller.moveByDays(-1);
        else if (event.key === Qt.Key_Right)
            controller.moveByDays(1);
        else if (event.key === Qt.Key_Up)
            controller.moveByDays(-7);
        else if (event.key === Qt.Key_Down)
            controller.moveByDays(7);
        else if (event.key === Qt.Key_PageUp)
            controller.moveByMonths(-1);
        else if (event.key === Qt.Key_PageDown)
            controller.moveByMonths(1);
        else if (event.key === Qt.Key_Home || event.key === Qt.Key_T)
            controller.moveToToday();
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space)
            root.pick();
        else if (event.key === Qt.Key_Escape)
            root.close();
        else
            event.accepted = event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab;
    }
}
