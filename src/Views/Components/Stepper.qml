import QtQuick

import Mintaro

/// Makes a number greater or smaller by one. It only tells of the step, which ends inside the range; what lies outside of
/// it, `value` may show until then.
FocusScope {
    id: root

    required property string accessibleName
    required property int value
    required property int minimumValue
    required property int maximumValue
    readonly property int stepSize: 1
    readonly property int pageSize: 10

    signal edited(int value)

    implicitWidth: buttons.implicitWidth
    implicitHeight: Theme.controlHeight - 2
    activeFocusOnTab: true
    Accessible.role: Accessible.SpinBox
    Accessible.name: root.accessibleName
    Accessible.focusable: true
    Accessible.onIncreaseAction: root.step(1)
    Accessible.onDecreaseAction: root.step(-1)
    Keys.onUpPressed: root.step(1)
    Keys.onRightPressed: root.step(1)
    Keys.onDownPressed: root.step(-1)
    Keys.onLeftPressed: root.step(-1)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
        if (event.accepted)
            root.step(event.key === Qt.Key_PageUp ? root.pageSize : -root.pageSize);
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.controlRadius
        color: Theme.controlFace
        border.width: Theme.borderWidth
        border.color: Theme.border
    }
    Row {
        id: buttons
        height: parent.height

        Half {
            symbol: "minus"
            enabled: root.value > root.minimumValue
            onClicked: root.step(-1)
        }
        Rectangle {
            width: Theme.borderWidth
            height: parent.height
            color: Theme.separator
        }
        Half {
            symbol: "plus"
            enabled: root.value < root.maximumValue
            onClicked: root.step(1)
        }
    }
    FocusRing {
        shown: root.activeFocus
    }

    component Half: PlainButton {
        id: half

        required property string symbol

        height: parent.height
        leftPadding: 7
        rightPadding: 7
        accessibleName: ""
        Accessible.ignored: true
        focusPolicy: Qt.NoFocus
        autoRepeat: true
        opacity: half.enabled ? 1 : Theme.disabledOpacity

        contentItem: Symbol {
            name: half.symbol
            size: 12
        }
    }

    function step(by: int) {
        const isAtEnd = by > 0 ? root.value >= root.maximumValue : root.value <= root.minimumValue;
        if (isAtEnd)
            return;
        const next = Math.max(root.minimumValue, Math.min(root.maximumValue, root.value + by));
        root.edited(next);
    }
}
