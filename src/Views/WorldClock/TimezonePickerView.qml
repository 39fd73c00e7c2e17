pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Mintaro

/// Chooses one of all time zones.
FocusScope {
    id: root

    required property TimezonePickerViewController controller

    width: Theme.pickerWidth
    height: Theme.pickerHeight
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: heading.text
    Keys.onEscapePressed: root.controller.cancel()
    Component.onCompleted: field.takeFocus()

    CardGround {
        anchors.fill: parent
    }
    Text {
        id: heading
        anchors { left: parent.left; leftMargin: Theme.sheetPadding; verticalCenter: cancel.verticalCenter }
        text: qsTrId("Add Timezone")
        font: Theme.headline
        color: Theme.primary
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    PushButton {
        id: cancel
        anchors { right: parent.right; top: parent.top; margins: Theme.sheetPadding }
        text: qsTrId("Cancel")
        onClicked: root.controller.cancel()
    }
    SearchField {
        id: field
        anchors { left: parent.left; right: parent.right; top: cancel.bottom; leftMargin: Theme.sheetPadding; rightMargin: Theme.sheetPadding; topMargin: Theme.sheetPadding }
        placeholder: qsTrId("Search timezones...")
        text: root.controller.searchText
        focus: true
        onEdited: root.search(field.text)
        onClearRequested: root.search("")
        onSearchRequested: if (list.currentIndex >= 0) root.controller.select(list.currentIndex)
        Keys.onDownPressed: list.incrementCurrentIndex()
        Keys.onUpPressed: list.decrementCurrentIndex()
        Keys.onPressed: event => root.turnPage(event)
    }
    Rectangle {
        id: divider
        anchors { left: parent.left; right: parent.right; top: field.bottom; topMargin: Theme.margin; leftMargin: Theme.borderWidth; rightMargin: Theme.borderWidth }
        height: 1
        color: Theme.separator
    }
    ListView {
        id: list
        anchors { left: parent.left; right: parent.right; top: divider.bottom; bottom: parent.bottom; leftMargin: Theme.margin - 4; rightMargin: Theme.margin - 4; bottomMargin: Theme.cornerRadius / 2 }
        topMargin: 4
        model: root.controller
        clip: true
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        Accessible.role: Accessible.List
        Accessible.name: heading.text

        // Nothing is chosen until the user typed or moved.
        currentIndex: -1

        delegate: T.ItemDelegate {
            id: row
            required property int index
            required property string title
            required property string abbreviation
            readonly property bool isCurrent: row.index === list.currentIndex
            // The indicator has its own room.
            width: list.width - 6
            height: Theme.pickerRowHeight
            leftPadding: 8
            rightPadding: 8
            hoverEnabled: true
            focusPolicy: Qt.NoFocus
            Accessible.name: row.title + ", " + row.abbreviation
            Accessible.selectable: true
            Accessible.selected: row.isCurrent
            Accessible.onPressAction: row.clicked()
            onClicked: root.controller.select(row.index)

            contentItem: Item {
                Text {
                    y: parent.height / 2 - height
                    width: parent.width
                    text: row.title
                    font: Theme.callout
                    color: row.isCurrent ? Theme.onAccent : Theme.primary
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    Accessible.ignored: true
                }
                Text {
                    y: parent.height / 2
                    width: parent.width
                    text: row.abbreviation
                    font: Theme.caption
                    color: row.isCurrent ? Theme.onAccent : Theme.secondary
                    textFormat: Text.PlainText
                    Accessible.ignored: true
                }
            }
            background: Rectangle {
                radius: Theme.controlRadius
                color: row.isCurrent ? Theme.accentFill : row.pressed ? Theme.press : row.hovered ? Theme.hover : "transparent"
            }
        }
    }
    ScrollIndicator {
        flickable: list
    }
    Text {
        anchors.centerIn: list
        visible: list.count === 0
        text: qsTrId("No results")
        font: Theme.caption
        color: Theme.secondary
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    function search(text: string) {
        root.controller.searchText = text;
        list.currentIndex = list.count > 0 ? 0 : -1;
        list.positionViewAtBeginning();
    }

    function turnPage(event) {
        if (event.key !== Qt.Key_PageDown && event.key !== Qt.Key_PageUp)
            return;
        const rows = Math.floor(list.height / Theme.pickerRowHeight) * (event.key === Qt.Key_PageDown ? 1 : -1);
        list.currentIndex = Math.max(0, Math.min(list.count - 1, list.currentIndex + rows));
        event.accepted = true;
    }
}
