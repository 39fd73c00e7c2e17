import QtQuick

import Mintaro

/// What stands in the agenda's place: a symbol over a line of text.
Column {
    id: root

    required property string symbol
    required property string text

    topPadding: 20
    bottomPadding: 20

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        name: root.symbol
        color: Theme.tertiary
        size: 20
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.text
        font: Theme.caption
        color: Theme.secondary
    }
}
