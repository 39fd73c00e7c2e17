import QtQuick

import Mintaro

Rectangle {
    id: root

    required property string service
    required property string serviceSymbol

    implicitWidth: content.implicitWidth + 8
    implicitHeight: content.implicitHeight + 2
    radius: Theme.badgeRadius
    color: Theme.badge

    Row {
        id: content
        anchors.centerIn: parent
        spacing: 3

        Symbol {
            name: root.serviceSymbol
            color: Theme.blue
            size: 10
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            text: root.service
            font: Theme.caption2
            color: Theme.blue
        }
    }
}
