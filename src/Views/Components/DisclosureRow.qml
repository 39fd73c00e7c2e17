import QtQuick

import Mintaro

/// A row of a form that opens and closes the rows below it. It only tells of the press.
PlainButton {
    id: root

    required property string title
    required property bool isExpanded

    accessibleName: root.title
    width: parent ? parent.width : implicitWidth
    implicitHeight: Theme.formRowHeight
    leftPadding: Theme.margin
    rightPadding: Theme.margin
    topInset: 2
    bottomInset: 2
    leftInset: 4
    rightInset: 4
    Accessible.checkable: true
    Accessible.checked: root.isExpanded
    Keys.onRightPressed: if (!root.isExpanded) root.clicked()
    Keys.onLeftPressed: if (root.isExpanded) root.clicked()

    contentItem: Row {
        spacing: 8

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: root.isExpanded ? "chevron.down" : "chevron.right"
            size: 10
            color: Theme.secondary
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            width: root.availableWidth - x
            text: root.title
            font: Theme.labelText
            color: Theme.primary
            textFormat: Text.PlainText
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
