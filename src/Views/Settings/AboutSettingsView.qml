import QtQuick

import Mintaro

/// Which Mintaro this is.
Item {
    id: root

    required property AboutSettingsViewController controller

    Column {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.margin
        spacing: 16

        AboutIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Theme.aboutIconSize
            height: width
            Accessible.role: Accessible.Graphic
            Accessible.name: "Mintaro"
        }
        Line {
            text: "Mintaro"
            font: Theme.titleBold
            color: Theme.primary
            Accessible.role: Accessible.Heading
        }
        Line {
            text: qsTrId("Version %@ (%@)").arg(root.controller.appVersion).arg(root.controller.buildNumber)
            font: Theme.subheadline
            color: Theme.secondary
        }
        Line {
            text: qsTrId("A lightweight macOS menu bar calendar")
            font: Theme.caption
            color: Theme.tertiary
        }
        PlainButton {
            id: link
            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.controller.websiteHost !== ""
            accessibleName: root.controller.websiteHost
            Accessible.role: Accessible.Link
            padding: 4
            contentItem: Text {
                text: link.accessibleName
                font: Theme.callout
                color: Theme.accentText
                textFormat: Text.PlainText
            }
            onClicked: root.controller.openWebsite()
        }
    }

    component Line: Text {
        width: parent ? parent.width : implicitWidth
        textFormat: Text.PlainText
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignHCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
