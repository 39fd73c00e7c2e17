import QtQuick

import Mintaro

/// One row of a form: what it is about on the left, the control on the right.
Item {
    id: root

    required property string label
    /// A line below the label that says more of it.
    property string help
    /// #rrggbb of the dot before the label; empty for none.
    property string dotColor
    /// The label tells a state rather than naming the control.
    property bool isState: false
    /// Of the row's beginning, for rows that belong to one above.
    property real indent: 0
    default property alias control: slot.data

    readonly property real helpHeight: root.help === "" ? 0 : helpText.height

    width: parent ? parent.width : implicitWidth
    implicitWidth: title.x + title.implicitWidth + slot.implicitWidth + 2 * Theme.margin
    implicitHeight: Math.max(Theme.formRowHeight, title.height + Theme.margin) + root.helpHeight

    Rectangle {
        id: dot
        x: Theme.margin + root.indent
        anchors.verticalCenter: title.verticalCenter
        visible: root.dotColor !== ""
        width: Theme.calendarDotSize
        height: width
        radius: width / 2
        color: root.dotColor === "" ? "transparent" : root.dotColor
    }
    Text {
        id: title
        x: dot.x + (dot.visible ? dot.width + 8 : 0)
        y: (root.height - root.helpHeight - height) / 2
        width: root.width - x - slot.width - 2 * Theme.margin
        text: root.label
        font: root.isState ? Theme.callout : Theme.body
        color: root.isState ? Theme.secondary : Theme.primary
        opacity: root.enabled ? 1 : Theme.disabledOpacity
        textFormat: Text.PlainText
        elide: Text.ElideRight
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        // The control speaks it.
        Accessible.role: Accessible.StaticText
        Accessible.name: root.label
        Accessible.ignored: !root.isState
    }
    Text {
        id: helpText
        x: title.x
        y: title.y + title.height
        width: title.width
        visible: root.help !== ""
        text: root.help
        font: Theme.caption
        color: Theme.secondary
        textFormat: Text.PlainText
        wrapMode: Text.WordWrap
        // The control speaks it, too.
        Accessible.ignored: true
    }
    Row {
        id: slot
        anchors { right: parent.right; rightMargin: Theme.margin; verticalCenter: parent.verticalCenter }
        spacing: 6
    }
}
