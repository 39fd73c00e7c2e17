import QtQuick

import Mintaro

FocusScope {
    id: root

    required property AppState appState

    width: ThemeController.popoverSize.width
    height: ThemeController.popoverSize.height
    focus: true

    Rectangle {
        anchors.fill: parent
        radius: Theme.cornerRadius
        color: Theme.background
        border.width: Theme.borderWidth
        border.color: Theme.border
    }

    MonthNavigationBar {
        id: bar
        appState: root.appState
        width: parent.width
    }
    CalendarGridView {
        id: grid
        appState: root.appState
        anchors { left: parent.left; right: parent.right; top: bar.bottom; bottom: divider.top; leftMargin: Theme.gridMargin; rightMargin: Theme.gridMargin; bottomMargin: 2 }
    }
    Rectangle {
        id: divider
        anchors { left: parent.left; right: parent.right; bottom: agenda.top; leftMargin: Theme.gridMargin; rightMargin: Theme.gridMargin }
        height: 1
        color: Theme.separator
    }
    AgendaListView {
        id: agenda
        appState: root.appState
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; leftMargin: Theme.borderWidth; rightMargin: Theme.borderWidth; bottomMargin: Theme.cornerRadius }
        height: Theme.agendaHeight
    }
}
