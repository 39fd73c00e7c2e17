import QtQuick

import Mintaro

/// Asks how far a change of a repeating event reaches. Its owner offers the way out.
FocusScope {
    id: root

    /// A value of EKSpan.
    signal selected(int span)

    width: 300
    implicitWidth: 300
    implicitHeight: column.implicitHeight + 2 * column.y
    Accessible.role: Accessible.Dialog
    Accessible.name: heading.text

    function takeFocus() {
        onlyThis.takeFocus();
    }

    Column {
        id: column
        y: Theme.sheetPadding
        x: Theme.sheetPadding
        width: root.width - 2 * Theme.sheetPadding
        spacing: 12

        Text {
            id: heading
            width: parent.width
            text: qsTrId("This is a repeating event.")
            font: Theme.headline
            color: Theme.primary
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }
        Text {
            width: parent.width
            text: qsTrId("Do you want to change only this event or all future events?")
            font: Theme.subheadline
            color: Theme.secondary
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }
        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 12

            PushButton {
                id: onlyThis
                focus: true
                text: qsTrId("Only This Event")
                onClicked: root.selected(EKSpan.ThisEvent)
            }
            PushButton {
                prominent: true
                text: qsTrId("All Future Events")
                onClicked: root.selected(EKSpan.FutureEvents)
            }
        }
    }
}
