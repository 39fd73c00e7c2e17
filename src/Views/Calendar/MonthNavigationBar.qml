import QtQuick

import Mintaro

Item {
    id: root

    required property AppState appState

    implicitHeight: 33

    MonthNavigationBarController {
        id: controller
        appState: root.appState
    }

    Shortcut {
        sequence: "Ctrl+Left"
        onActivated: controller.showPreviousMonth()
    }
    Shortcut {
        sequence: "Ctrl+Right"
        onActivated: controller.showNextMonth()
    }
    Shortcut {
        sequence: "T"
        onActivated: controller.showToday()
    }

    PlainButton {
        id: previous
        accessibleName: qsTrId("Previous Month")
        padding: 6
        anchors { left: parent.left; leftMargin: Theme.margin - padding; verticalCenter: parent.verticalCenter }
        contentItem: Symbol {
            name: "chevron.left"
            size: 13
        }
        onClicked: controller.showPreviousMonth()
    }

    Text {
        id: title
        text: controller.monthTitle
        font: Theme.headline
        color: Theme.primary
        textFormat: Text.PlainText
        anchors.centerIn: parent
        Accessible.role: Accessible.Heading
        Accessible.name: title.text
    }

    PlainButton {
        id: today
        accessibleName: qsTrId("Today")
        leftPadding: 6
        rightPadding: 6
        topPadding: 4
        bottomPadding: 4
        anchors { right: next.left; rightMargin: 3; verticalCenter: parent.verticalCenter }
        contentItem: Text {
            text: today.accessibleName
            font: Theme.caption
            color: Theme.accentText
        }
        onClicked: controller.showToday()
    }

    PlainButton {
        id: next
        accessibleName: qsTrId("Next Month")
        padding: 6
        anchors { right: parent.right; rightMargin: Theme.margin - padding; verticalCenter: parent.verticalCenter }
        contentItem: Symbol {
            name: "chevron.right"
            size: 13
        }
        onClicked: controller.showNextMonth()
    }
}
