import QtQuick

import Mintaro

/// The popover's last row.
Item {
    id: root

    required property AppState appState

    implicitHeight: newEvent.implicitHeight + 2 * (8 - newEvent.padding)

    BottomToolbarController {
        id: controller
        appState: root.appState
    }

    ToolButton {
        id: newEvent
        anchors { left: parent.left; leftMargin: Theme.margin - padding; verticalCenter: parent.verticalCenter }
        accessibleName: qsTrId("New Event")
        toolTip: qsTrId("New Event (⌘N)")
        symbol: "plus"
        shortcut: "Ctrl+N"
        onClicked: controller.openNewEvent()
    }
    ToolButton {
        anchors { left: newEvent.right; leftMargin: 6; verticalCenter: parent.verticalCenter }
        accessibleName: qsTrId("Search")
        toolTip: qsTrId("Search (⌘F)")
        symbol: "magnifyingglass"
        shortcut: "Ctrl+F"
        onClicked: root.appState.isShowingSearch = !root.appState.isShowingSearch
    }
    ToolButton {
        anchors { right: quit.left; rightMargin: 6; verticalCenter: parent.verticalCenter }
        accessibleName: qsTrId("Settings")
        toolTip: qsTrId("Settings")
        symbol: "gear"
        onClicked: controller.openSettings()
    }
    ToolButton {
        id: quit
        anchors { right: parent.right; rightMargin: Theme.margin - padding; verticalCenter: parent.verticalCenter }
        accessibleName: qsTrId("Quit")
        toolTip: qsTrId("Quit Mintaro (⌘Q)")
        symbol: "power"
        shortcut: "Ctrl+Q"
        onClicked: controller.quit()
    }

    component ToolButton: PlainButton {
        id: button

        required property string symbol
        required property string toolTip
        property string shortcut

        padding: 5
        contentItem: Symbol {
            name: button.symbol
            size: 16
        }

        Shortcut {
            enabled: button.shortcut !== ""
            sequence: button.shortcut
            onActivated: button.clicked()
        }
        ToolTipText {
            text: button.toolTip
            shown: button.hovered || button.visualFocus
        }
    }
}
