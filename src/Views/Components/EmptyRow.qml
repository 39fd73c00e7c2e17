import QtQuick

import Mintaro

/// A row of a form that says that there is nothing to show.
Item {
    id: root

    required property string text

    width: parent ? parent.width : implicitWidth
    implicitWidth: label.implicitWidth + 2 * Theme.margin
    implicitHeight: Theme.formRowHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    Text {
        id: label
        x: Theme.margin
        width: root.width - 2 * Theme.margin
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        font: Theme.body
        color: Theme.secondary
        textFormat: Text.PlainText
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
