import QtQuick

import Mintaro

/// A symbol before a short text.
Item {
    id: root

    required property string symbol
    required property string text

    implicitWidth: image.width + 4 + Math.ceil(label.implicitWidth)
    implicitHeight: label.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    Symbol {
        id: image
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbol
        size: 10
        color: Theme.secondary
    }
    Text {
        id: label
        x: image.width + 4
        width: root.width - x
        text: root.text
        font: Theme.caption
        color: Theme.secondary
        textFormat: Text.PlainText
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
