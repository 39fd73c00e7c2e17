import QtQuick

import Mintaro

FocusScope {
    id: root

    required property AppState appState

    width: ThemeController.popoverSize.width
    height: ThemeController.popoverSize.height
    focus: true

    MainPopoverViewController {
        id: controller
        appState: root.appState
    }

    CardGround {
        anchors.fill: parent
    }
    MonthNavigationBar {
        id: bar
        appState: root.appState
        width: parent.width
    }
    CalendarGridView {
        id: grid
        focus: true
        appState: root.appState
        anchors { left: parent.left; right: parent.right; top: bar.bottom; leftMargin: Theme.gridMargin; rightMargin: Theme.gridMargin }
    }
    Divider {
        id: divider
        anchors { top: grid.bottom; topMargin: 2 }
    }
    AgendaListView {
        appState: root.appState
        anchors { left: parent.left; right: parent.right; top: divider.bottom; bottom: toolbarDivider.top; leftMargin: Theme.borderWidth; rightMargin: Theme.borderWidth }
    }
    Divider {
        id: toolbarDivider
        anchors { bottom: toolbar.top }
    }
    BottomToolbar {
        id: toolbar
        appState: root.appState
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
    }

    Sheet {
        id: searchSheet
        hangs: true
        visible: root.appState.isShowingSearch
        contentItem: SearchView {
            focus: true
            appState: root.appState
            onDismissed: searchSheet.close()
        }
        onOpened: (contentItem as SearchView).takeFocus()
        onClosed: root.appState.isShowingSearch = false
    }
    AlertSheet {
        visible: root.appState.isShowingDeleteConfirmation
        title: qsTrId("Delete Event?")
        message: controller.deleteMessage
        confirmText: qsTrId("Delete")
        cancelText: qsTrId("Cancel")
        destructive: true
        onConfirmed: controller.deletePending(EKSpan.ThisEvent)
        onClosed: controller.cancelDelete()
    }
    Sheet {
        visible: root.appState.isShowingSpanPicker
        contentItem: RecurrenceSpanPicker {
            focus: true
            onSelected: span => controller.deletePending(span)
        }
        onOpened: (contentItem as RecurrenceSpanPicker).takeFocus()
        onClosed: controller.cancelDelete()
    }
    AlertSheet {
        visible: root.appState.errorMessage !== ""
        title: qsTrId("Error")
        message: root.appState.errorMessage
        confirmText: qsTrId("OK")
        onConfirmed: controller.dismissError()
        onClosed: controller.dismissError()
    }

    component Divider: Rectangle {
        anchors { left: parent ? parent.left : undefined; right: parent ? parent.right : undefined; leftMargin: Theme.gridMargin; rightMargin: Theme.gridMargin }
        height: 1
        color: Theme.separator
    }
}
