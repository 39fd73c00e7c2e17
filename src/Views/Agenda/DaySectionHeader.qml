import QtQuick

import Mintaro

Rectangle {
    id: root

    required property string title
    required property bool isToday

    implicitHeight: label.implicitHeight + 8
    color: Theme.sectionBand
    Accessible.role: Accessible.Heading
    Accessible.name: root.title

    Text {
        id: label
        anchors { left: parent.left; right: parent.right; margins: Theme.margin; verticalCenter: parent.verticalCenter }
        text: root.title
        font: Theme.sectionHeading
        color: root.isToday ? Theme.accentText : Theme.secondary
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
    }
}
