import QtQuick

import Mintaro

/// Colours and font.
FormPage {
    id: root

    required property AppearanceSettingsViewController controller

    SettingsSection {
        heading: qsTrId("Colors")

        SwitchRow {
            label: qsTrId("Use system accent color")
            isOn: root.controller.useSystemAccent
            onSwitched: isOn => root.controller.useSystemAccent = isOn
        }
        FormRow {
            id: accent
            visible: !root.controller.useSystemAccent
            label: qsTrId("Accent color (hex)")

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 14
                height: width
                radius: width / 2
                color: Theme.accentFill
            }
            BoxedField {
                id: hex
                placeholder: "#RRGGBB"
                accessibleName: accent.label
                text: root.controller.accentColorHex
                onEdited: root.controller.accentColorHex = hex.text
            }
        }
    }
    SettingsSection {
        heading: qsTrId("Font")

        FormRow {
            id: fontSize
            label: qsTrId("Event font size: %lldpt").arg(Math.trunc(root.controller.eventFontSize))

            StepSlider {
                accessibleName: fontSize.label
                from: 10
                to: 18
                // By whole steps, also from a number between two.
                value: Math.trunc(root.controller.eventFontSize)
                onMoved: root.controller.eventFontSize = value
            }
        }
    }
}
