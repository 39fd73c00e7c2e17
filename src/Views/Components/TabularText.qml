pragma ComponentBehavior: Bound

import QtQuick

import Mintaro

/// A line of text whose digits all take the same room, so that nothing beside it moves when they change. Qt 6.4 does not
/// hand a font's own tabular digits on.
Row {
    id: root

    required property string text
    property font font: Theme.labelText
    property color color: Theme.primary

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    TextMetrics {
        id: zero
        font: root.font
        text: "0"
    }
    Repeater {
        model: root.text.match(/\d|\D+/g)

        Text {
            required property string modelData
            readonly property bool isDigit: modelData >= "0" && modelData <= "9"
            width: isDigit ? Math.ceil(zero.advanceWidth) : implicitWidth
            horizontalAlignment: Text.AlignHCenter
            text: modelData
            font: root.font
            color: root.color
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
    }
}
