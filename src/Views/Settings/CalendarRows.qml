pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.qmlmodels

import Mintaro

/// The rows of a form for calendars to choose from, and for their sources.
Repeater {
    id: root

    required property CalendarChecklist checklist
    /// Of a calendar below its source.
    property real indent: 0

    model: root.checklist
    delegate: DelegateChooser {
        role: "isGroup"

        DelegateChoice {
            roleValue: true

            DisclosureRow {
                required property int index
                onClicked: root.checklist.setExpanded(index, !isExpanded)
            }
        }
        DelegateChoice {
            roleValue: false

            SwitchRow {
                required property int index
                required property string title
                required property string color
                label: title
                dotColor: color
                indent: root.indent
                onSwitched: isOn => root.checklist.setOn(index, isOn)
            }
        }
    }
}
