import QtQuick

import Mintaro

/// One row of a form: what it is about on the left, the control on the right.
Item {
    id: root

    required property string label
    default property alias control: slot.data

    width: parent ? parent.width : implicitWidth
    implicitWidth: title.implicitWidth + slot.implicitWidth + 3 * Theme.margin
    implicitHeight: Theme.formRowHeight

    Text {
        id: title
        anchors { left: parent.left; leftMargin: Theme.margin; verticalCenter: parent.verticalCenter }
        text: root.label
        font: Theme.body
        color: Theme.primary
        opacity: root.enabled ? 1 : Theme.disabledOpacity
        textFormat: Text.PlainText
        // The control speaks it.
        Accessible.ignored: true
    }
    Row {
        id: slot
        anchors { right: parent.right; rightMargin: Theme.margin; verticalCenter: parent.verticalCenter }
        spacing: 6
    }
}
