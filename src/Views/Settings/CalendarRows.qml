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

    /// The user opened the source of that row: what is below it is to come in sight.
    signal opened(Item row)

    model: root.checklist
    delegate: DelegateChooser {
        role: "isGroup"

        DelegateChoice {
            roleValue: true

            DisclosureRow {
                id: source
                required property int index
                onClicked: {
                    // One of the rows that go may have the keyboard.
                    source.forceActiveFocus(source.focusReason);
                    if (!source.isExpanded)
                        root.opened(source);
                    root.checklist.setExpanded(source.index, !source.isExpanded);
                }
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
