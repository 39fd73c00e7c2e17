import QtQuick
import QtQuick.Templates as T

import Mintaro

/// The line to search by: Return searches, the cross empties it.
Item {
    id: root

    required property string placeholder
    property alias text: field.text

    /// The user changed the text.
    signal edited
    signal searchRequested
    signal clearRequested

    implicitHeight: Theme.controlHeight

    function takeFocus() {
        field.forceActiveFocus(Qt.OtherFocusReason);
        field.selectAll();
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.chipRadius
        color: Theme.fieldFace
        border.width: Theme.borderWidth
        border.color: Theme.separator

        FocusRing {
            shown: field.activeFocus
            gap: 0
        }
    }
    Symbol {
        id: glass
        anchors { left: parent.left; leftMargin: 7; verticalCenter: parent.verticalCenter }
        name: "magnifyingglass"
        color: Theme.secondary
        size: 12
    }
    T.TextField {
        id: field
        anchors { left: glass.right; right: clear.visible ? clear.left : parent.right; top: parent.top; bottom: parent.bottom }
        leftPadding: 6
        rightPadding: 4
        font: Theme.body
        color: Theme.primary
        selectionColor: Theme.selectionGround
        selectedTextColor: Theme.primary
        selectByMouse: true
        verticalAlignment: TextInput.AlignVCenter
        Accessible.role: Accessible.EditableText
        Accessible.name: root.placeholder
        Accessible.searchEdit: true
        onTextEdited: root.edited()
        onAccepted: root.searchRequested()

        Text {
            anchors { fill: parent; leftMargin: field.leftPadding }
            visible: field.length === 0 && field.preeditText === ""
            text: root.placeholder
            font: field.font
            color: Theme.tertiary
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
    }
    PlainButton {
        id: clear
        anchors { right: parent.right; rightMargin: 1; verticalCenter: parent.verticalCenter }
        visible: field.text !== ""
        accessibleName: qsTrId("Clear")
        padding: 5
        contentItem: Symbol {
            name: "xmark.circle.fill"
            color: Theme.secondary
            size: 12
        }
        onClicked: {
            root.clearRequested();
            root.takeFocus();
        }
    }
}
