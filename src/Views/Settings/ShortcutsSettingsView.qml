import QtQuick

import Mintaro

/// The keys that the program knows.
FormPage {
    SettingsSection {
        heading: qsTrId("Global Shortcuts")

        ShortcutRow {
            label: qsTrId("Toggle popover")
            keys: qsTrId("⌥ Space")
        }
    }
    SettingsSection {
        heading: qsTrId("In-App Shortcuts")

        ShortcutRow {
            label: qsTrId("Previous month")
            keys: qsTrId("⌘ ←")
        }
        ShortcutRow {
            label: qsTrId("Next month")
            keys: qsTrId("⌘ →")
        }
        ShortcutRow {
            label: qsTrId("Go to today")
            keys: qsTrId("T")
        }
        ShortcutRow {
            label: qsTrId("New event")
            keys: qsTrId("⌘ N")
        }
        ShortcutRow {
            label: qsTrId("Search")
            keys: qsTrId("⌘ F")
        }
    }

    component ShortcutRow: FormRow {
        id: row

        required property string keys

        Text {
            text: row.keys
            font: Theme.keys
            color: Theme.secondary
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: row.label + ": " + row.keys
        }
    }
}
