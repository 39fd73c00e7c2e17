import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A line to type in, without a box: the row that it stands in is its ground. `edited` tells of what the user types.
T.TextField {
    id: root

    required property string accessibleName
    property alias placeholder: root.placeholderText

    signal edited

    implicitWidth: 160
    implicitHeight: Theme.formRowHeight
    leftPadding: Theme.margin
    rightPadding: Theme.margin
    font: Theme.body
    color: Theme.primary
    selectionColor: Theme.selectionGround
    selectedTextColor: Theme.primary
    selectByMouse: true
    verticalAlignment: TextInput.AlignVCenter
    hoverEnabled: true
    opacity: root.enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.EditableText
    Accessible.name: root.accessibleName
    onTextEdited: root.edited()
    // A long line that nobody types in shows its beginning.
    onTextChanged: if (!root.activeFocus) root.cursorPosition = 0
    onActiveFocusChanged: {
        if (!root.activeFocus)
            root.cursorPosition = 0;
        else if (root.focusReason === Qt.TabFocusReason || root.focusReason === Qt.BacktabFocusReason)
            root.selectAll();
    }

    background: Rectangle {
        anchors { fill: parent; margins: 3 }
        radius: Theme.controlRadius
        color: root.hovered && !root.activeFocus ? Theme.sectionBand : "transparent"

        FocusRing {
            shown: root.activeFocus
            gap: 0
        }
    }

    Text {
        anchors { fill: parent; leftMargin: root.leftPadding; rightMargin: root.rightPadding }
        visible: root.length === 0 && root.preeditText === ""
        text: root.placeholderText
        font: root.font
        color: Theme.tertiary
        textFormat: Text.PlainText
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
