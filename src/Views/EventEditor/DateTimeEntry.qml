import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A day or a clock reading to type in, or to step through by keys. What it holds is applied on Return and on leaving, put
/// back on Escape, and put back as well where it says nothing.
T.TextField {
    id: root

    required property DateTimeFieldController controller
    /// DateTimeFieldController.Day or Time
    required property int entry
    required property string accessibleName

    readonly property string shown: root.entry === DateTimeFieldController.Day ? root.controller.dayText : root.controller.timeText
    readonly property bool isReadable: root.text === root.shown || root.controller.accepts(root.entry, root.text)

    signal monthRequested

    width: Math.ceil(Math.max(measure.width, contentWidth)) + leftPadding + rightPadding + 2
    implicitHeight: Theme.controlHeight
    leftPadding: 6
    rightPadding: 0
    rightInset: -6
    font: Theme.body
    color: root.isReadable ? Theme.primary : Theme.red
    selectionColor: Theme.selectionGround
    selectedTextColor: root.color
    selectByMouse: true
    horizontalAlignment: TextInput.AlignRight
    verticalAlignment: TextInput.AlignVCenter
    hoverEnabled: true
    maximumLength: 32
    Accessible.role: Accessible.EditableText
    Accessible.name: root.accessibleName
    onShownChanged: root.text = root.shown
    onAccepted: root.commit()
    // Not when the window loses the keyboard: who comes back goes on typing.
    onActiveFocusChanged: {
        if (!root.activeFocus && root.Window.active)
            root.commit();
        else if (root.focusReason === Qt.TabFocusReason || root.focusReason === Qt.BacktabFocusReason)
            root.selectAll();
    }
    // The window's own Escape closes more than what was typed here.
    Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape && root.text !== root.shown
    Keys.onPressed: event => root.handleKey(event)
    Component.onCompleted: root.text = root.shown

    background: Rectangle {
        radius: Theme.controlRadius
        color: root.hovered || root.activeFocus ? Theme.hover : "transparent"

        FocusRing {
            shown: root.activeFocus
            gap: 0
        }
    }

    TextMetrics {
        id: measure
        font: root.font
        // One and two digits of the hour take the same room, so that fields below each other are aligned.
        text: root.shown.replace(/\d/g, "0").replace(/^0:/, "00:")
    }

    function commit() {
        root.controller.apply(root.entry, root.text);
        root.text = root.shown;
    }

    function handleKey(event) {
        event.accepted = true;
        if (event.key === Qt.Key_Escape && root.text !== root.shown)
            root.text = root.shown;
        else if (event.key === Qt.Key_Down && event.modifiers & Qt.AltModifier)
            root.monthRequested();
        else if (event.key === Qt.Key_Up || event.key === Qt.Key_Down)
            root.step(event.key === Qt.Key_Up ? 1 : -1, event.modifiers & Qt.ShiftModifier);
        else if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown)
            root.step(event.key === Qt.Key_PageUp ? 1 : -1, true);
        else
            event.accepted = false;
    }

    function step(by: int, isLong: bool) {
        const moved = root.controller.step(root.entry, root.text, root.selectedText === root.text ? 0 : root.selectionStart, by, isLong);
        if (moved.end === 0)
            return;
        root.text = root.shown;
        root.select(moved.start, moved.end);
    }
}
