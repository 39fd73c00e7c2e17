import QtQuick

import Mintaro

/// Label, reminders, language, updates.
FormPage {
    id: root

    required property GeneralSettingsViewController controller

    SettingsSection {
        heading: qsTrId("Menu Bar")

        SwitchRow {
            label: qsTrId("Launch at login")
            isOn: root.controller.launchAtLogin
            onSwitched: isOn => root.controller.launchAtLogin = isOn
        }
        SwitchRow {
            label: qsTrId("Show date in menu bar")
            isOn: root.controller.showDateInMenuBar
            onSwitched: isOn => root.controller.showDateInMenuBar = isOn
        }
        SwitchRow {
            label: qsTrId("Show next event in menu bar")
            isOn: root.controller.showNextEvent
            onSwitched: isOn => root.controller.showNextEvent = isOn
        }
        SwitchRow {
            visible: root.controller.showNextEvent
            label: qsTrId("Show meeting icon")
            isOn: root.controller.showMeetingIcon
            onSwitched: isOn => root.controller.showMeetingIcon = isOn
        }
        FormRow {
            id: countdown
            visible: root.controller.showNextEvent
            label: qsTrId("Countdown format")

            PopupMenuButton {
                accessibleName: countdown.label
                texts: root.controller.countdownFormats
                currentIndex: root.controller.countdownFormat
                onActivated: index => root.controller.countdownFormat = index
            }
        }
        FormRow {
            id: titleLength
            visible: root.controller.showNextEvent
            label: qsTrId("Max title length: %lld").arg(root.controller.maxTitleLength)

            Stepper {
                accessibleName: titleLength.label
                value: root.controller.maxTitleLength
                minimumValue: 10
                maximumValue: 50
                onEdited: length => root.controller.maxTitleLength = length
            }
        }
        FormRow {
            id: dateFormat
            label: qsTrId("Date format")
            help: qsTrId("Uses DateFormatter patterns: d MMM, EEE d, etc.")

            BoxedField {
                id: pattern
                accessibleName: dateFormat.label
                Accessible.description: dateFormat.help
                text: root.controller.dateFormat
                onEdited: root.controller.dateFormat = pattern.text
            }
        }
    }
    SettingsSection {
        heading: qsTrId("Notifications")

        SwitchRow {
            label: qsTrId("Meeting reminders")
            help: qsTrId("Show a notification before meetings with video links")
            isOn: root.controller.meetingReminders
            onSwitched: isOn => root.controller.meetingReminders = isOn
        }
        FormRow {
            id: minutes
            visible: root.controller.meetingReminders
            label: qsTrId("%lld min before").arg(root.controller.reminderMinutes)

            Stepper {
                accessibleName: minutes.label
                value: root.controller.reminderMinutes
                minimumValue: 1
                maximumValue: 30
                onEdited: count => root.controller.reminderMinutes = count
            }
        }
        SwitchRow {
            label: qsTrId("Hourly chime")
            isOn: root.controller.hourlyChime
            onSwitched: isOn => root.controller.hourlyChime = isOn
        }
    }
    SettingsSection {
        heading: qsTrId("Language")

        FormRow {
            id: language
            label: qsTrId("Language")
            help: root.controller.showLanguageRestart ? qsTrId("Restart required to change language") : ""

            PopupMenuButton {
                accessibleName: language.label
                texts: root.controller.languages
                currentIndex: root.controller.language
                onActivated: index => root.controller.language = index
            }
        }
    }
    SettingsSection {
        heading: qsTrId("Updates")

        FormRow {
            label: root.controller.updateStatus
            isState: true

            PushButton {
                visible: root.controller.hasUpdate
                text: qsTrId("updates.open")
                prominent: true
                onClicked: root.controller.openUpdate()
            }
            PushButton {
                text: qsTrId("Check for Updates...")
                enabled: root.controller.canCheckForUpdates
                onClicked: root.controller.checkForUpdates()
            }
        }
    }
}
