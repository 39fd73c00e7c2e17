import QtQuick

import Mintaro

/// Finds events by their texts. Nothing is searched while the user types.
FocusScope {
    id: root

    required property AppState appState

    signal dismissed

    implicitWidth: 320
    implicitHeight: 300
    Accessible.role: Accessible.Dialog
    Accessible.name: qsTrId("Search")

    function takeFocus() {
        field.takeFocus();
    }

    SearchViewController {
        id: controller
        appState: root.appState
        onFound: list.showFrom(controller.nearestDay())
        onAboutToRepeat: list.keepPlace()
        onRepeated: list.returnToPlace()
    }

    Shortcut {
        sequence: "Ctrl+F"
        // The toolbar's waits while the sheet is up.
        enabled: root.appState.isShowingSearch
        onActivated: root.dismissed()
    }
    SearchField {
        id: field
        anchors { left: parent.left; right: done.left; top: parent.top; leftMargin: 8; rightMargin: 4; topMargin: 8 }
        placeholder: qsTrId("Search events...")
        text: root.appState.searchVM.searchText
        onEdited: root.appState.searchVM.searchText = field.text
        onSearchRequested: controller.search()
        onClearRequested: controller.clear()
        Keys.onDownPressed: list.takeFocus()
    }
    PlainButton {
        id: done
        anchors { right: parent.right; rightMargin: 8; verticalCenter: field.verticalCenter }
        accessibleName: qsTrId("Done")
        padding: 5
        contentItem: Text {
            text: done.accessibleName
            font: Theme.body
            color: Theme.accentText
        }
        onClicked: root.dismissed()
    }
    Rectangle {
        id: divider
        anchors { left: parent.left; right: parent.right; top: field.bottom; topMargin: 8 }
        height: 1
        color: Theme.separator
    }
    Item {
        anchors { left: parent.left; right: parent.right; top: divider.bottom; bottom: parent.bottom; margins: Theme.borderWidth; topMargin: 0; bottomMargin: Theme.cornerRadius / 2 }

        ProgressIndicator {
            anchors.centerIn: parent
            visible: controller.state === SearchViewController.Searching
        }
        Text {
            anchors.centerIn: parent
            visible: controller.state === SearchViewController.NoResults
            text: qsTrId("No results")
            font: Theme.caption
            color: Theme.secondary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        EventList {
            id: list
            anchors.fill: parent
            visible: controller.state === SearchViewController.Results
            controller: controller
            ground: Theme.floatingGround
            accessibleName: qsTrId("Search results")
        }
    }
}
