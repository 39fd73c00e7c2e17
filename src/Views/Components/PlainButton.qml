import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A button without a face of its own: hover, press and keyboard focus show as a quiet ground behind its content.
T.AbstractButton {
    id: root

    required property string accessibleName

    /// Return is to press what has the ring.
    function takeFocus() {
        root.forceActiveFocus(Qt.TabFocusReason);
        root.focusReason = Qt.TabFocusReason; // also where it had the keyboard before
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Button
    Accessible.name: root.accessibleName
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: ControlGround {
        control: root
    }
}
