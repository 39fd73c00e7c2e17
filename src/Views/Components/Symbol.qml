import QtQuick

import Mintaro

/// One of the named symbols, in one colour, in a square.
Item {
    id: root

    required property string name
    property color color: Theme.primary
    /// Edge of the square.
    property real size: 14

    readonly property int pixels: Math.ceil(root.size * Screen.devicePixelRatio)

    implicitWidth: root.size
    implicitHeight: root.size
    Accessible.ignored: true

    Image {
        anchors.centerIn: parent
        width: root.size
        height: root.size
        sourceSize.width: root.pixels
        sourceSize.height: root.pixels
        source: root.name === "" ? "" : "image://symbol/" + root.name + "?" + root.color.toString().substring(1)
    }
}
