import QtQuick

import Mintaro

/// A row of a form with a switch. It only tells of the user's change: what it shows stays `isOn`, which its owner sets.
FormRow {
    id: root

    required property bool isOn

    signal switched(bool isOn)

    ToggleSwitch {
        id: toggle
        accessibleName: root.label
        Accessible.description: root.help
        checked: root.isOn
        onToggled: {
            root.switched(checked);
            // The owner may have refused.
            checked = Qt.binding(() => root.isOn);
        }
    }
}
