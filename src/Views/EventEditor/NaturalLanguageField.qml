import QtQuick

import Mintaro

/// The event's title, or a whole sentence, over what the parser makes of it. Its owner sets `text`, takes over what the user
/// types on `edited`, and what a sentence says on `parsed`.
FocusScope {
    id: root

    property alias appState: controller.appState
    property alias text: controller.text

    signal edited
    signal parsed(var event) // a ParsedEvent, for C++

    width: parent ? parent.width : implicitWidth
    implicitWidth: field.implicitWidth
    implicitHeight: field.height + (preview.opacity > 0 ? preview.height + 8 : 0)

    NaturalLanguageFieldController {
        id: controller
        onParsed: event => root.parsed(event)
        onTextChanged: if (field.text !== text) field.text = text
    }
    LineField {
        id: field
        width: root.width
        focus: true
        accessibleName: qsTrId("Title")
        placeholder: qsTrId("Event title or natural language...")
        onEdited: {
            controller.edit(field.text);
            root.edited();
        }
        onAccepted: controller.commit()
        // Not when the window loses the keyboard: who comes back goes on typing.
        onActiveFocusChanged: if (!field.activeFocus && field.Window.active) controller.commit()
    }
    Row {
        id: preview
        x: Theme.margin
        anchors.top: field.bottom
        spacing: 8
        opacity: controller.hasPreview ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.quickAnimation
            }
        }

        SymbolLabel {
            symbol: "calendar"
            text: controller.previewDate
        }
        SymbolLabel {
            visible: controller.previewLocation !== ""
            symbol: "mappin"
            text: controller.previewLocation
            width: Math.min(implicitWidth, root.width - x - 2 * Theme.margin)
        }
    }

    /// To be called before what the form holds is used.
    function commit() {
        controller.commit();
    }
}
