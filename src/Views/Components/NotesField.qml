import QtQuick
import QtQuick.Templates as T

import Mintaro

/// Several lines to type in. It grows with its text from three lines to six, then scrolls; Tab leaves it.
FocusScope {
    id: root

    required property string accessibleName
    property alias text: area.text
    property alias placeholder: area.placeholderText

    /// Inside it the text scrolls.
    readonly property int inset: 4
    readonly property real lineHeight: metrics.lineSpacing

    signal edited

    implicitWidth: 160
    implicitHeight: Math.ceil(Math.max(3 * root.lineHeight, Math.min(6 * root.lineHeight, area.contentHeight))) + area.topPadding + area.bottomPadding + 2 * root.inset
    activeFocusOnTab: false
    opacity: root.enabled ? 1 : Theme.disabledOpacity

    FontMetrics {
        id: metrics
        font: area.font
    }
    FocusRing {
        shown: area.activeFocus
        gap: -3
    }
    Flickable {
        id: flickable
        anchors { fill: parent; margins: root.inset }
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        contentWidth: width

        T.TextArea.flickable: T.TextArea {
            id: area
            focus: true
            leftPadding: Theme.margin - root.inset
            rightPadding: Theme.margin - root.inset
            topPadding: 4
            bottomPadding: 4
            font: Theme.body
            color: Theme.primary
            selectionColor: Theme.selectionGround
            selectedTextColor: Theme.primary
            selectByMouse: true
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            Accessible.role: Accessible.EditableText
            Accessible.name: root.accessibleName
            Accessible.multiLine: true
            KeyNavigation.priority: KeyNavigation.BeforeItem
            Keys.onTabPressed: area.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: area.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            onTextChanged: if (area.activeFocus) root.edited()

            Text {
                anchors { fill: parent; leftMargin: area.leftPadding; rightMargin: area.rightPadding; topMargin: area.topPadding }
                visible: area.length === 0 && area.preeditText === ""
                text: area.placeholderText
                font: area.font
                color: Theme.tertiary
                textFormat: Text.PlainText
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
    }
    ScrollIndicator {
        flickable: flickable
    }
}
