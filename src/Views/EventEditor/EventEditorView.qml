import QtQuick

import Mintaro

/// An event to fill in or to change.
FocusScope {
    id: root

    required property EventEditorViewController controller

    width: 340
    height: 480
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: root.controller.heading
    Keys.onEscapePressed: root.controller.closeEditor()

    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        onActivated: root.save()
    }

    CardGround {
        anchors.fill: parent
    }
    PlainButton {
        id: closeButton
        anchors { right: parent.right; top: parent.top; margins: 5 }
        accessibleName: qsTrId("Close")
        padding: 5
        contentItem: Symbol {
            name: "xmark"
            size: 9
            color: Theme.secondary
        }
        onClicked: root.controller.closeEditor()
    }
    Item {
        id: header
        anchors { horizontalCenter: parent.horizontalCenter; top: closeButton.bottom }
        width: Theme.editorWidth
        height: 40

        PushButton {
            id: cancelButton
            anchors { left: parent.left; leftMargin: Theme.margin; verticalCenter: parent.verticalCenter }
            text: qsTrId("Cancel")
            onClicked: root.controller.closeEditor()
        }
        Text {
            anchors.centerIn: parent
            text: root.controller.heading
            font: Theme.headline
            color: Theme.primary
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PushButton {
            id: saveButton
            anchors { right: parent.right; rightMargin: Theme.margin; verticalCenter: parent.verticalCenter }
            text: qsTrId("Save")
            prominent: true
            enabled: root.controller.canSave
            onClicked: root.save()
        }
    }
    Rectangle {
        id: divider
        anchors { top: header.bottom; left: parent.left; right: parent.right; leftMargin: Theme.borderWidth; rightMargin: Theme.borderWidth }
        height: 1
        color: Theme.separator
    }
    EventEditorForm {
        id: form
        controller: root.controller
        anchors { horizontalCenter: parent.horizontalCenter; top: divider.bottom; bottom: parent.bottom; bottomMargin: Theme.borderWidth }
        width: Theme.editorWidth
        focus: true
    }

    Sheet {
        visible: root.controller.showSpanPicker
        contentItem: RecurrenceSpanPicker {
            focus: true
            onSelected: span => root.controller.chooseSpan(span)
        }
        onOpened: (contentItem as RecurrenceSpanPicker).takeFocus()
        onClosed: root.controller.showSpanPicker = false
    }

    function save() {
        // What is being typed in a field counts, and leaving the field settles it.
        form.commit();
        root.controller.handleSave();
    }
}
