import QtQuick
import QtQuick.Templates as T

import Mintaro

/// A circle to tick off. It shows what its owner sets; a click is the owner's to follow.
T.CheckBox {
    id: root

    required property string accessibleName
    /// Of the open circle.
    required property color color

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 5
    hoverEnabled: true
    nextCheckState: () => root.checkState
    Accessible.name: root.accessibleName
    Accessible.onPressAction: root.clicked()
    Accessible.onToggleAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    contentItem: Symbol {
        name: root.checked ? "checkmark.circle.fill" : "circle"
        color: root.checked ? Theme.secondary : root.color
        size: 13
    }
    background: ControlGround {
        control: root
    }
}
