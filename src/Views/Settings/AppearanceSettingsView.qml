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

            BoxedField {
                id: hex
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
                value: root.controller.eventFontSize
                onMoved: root.controller.eventFontSize = value
            }
        }
    }
}
