import QtQuick

import Mintaro

/// The rows of the event editor. They scroll where they need more room than there is.
FocusScope {
    id: root

    required property EventEditorViewController controller

    readonly property Item focusItem: root.Window.activeFocusItem

    onFocusItemChanged: root.reveal(root.focusItem)

    Flickable {
        id: flickable
        anchors.fill: parent
        contentHeight: column.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height

        Column {
            id: column
            width: parent.width
            padding: Theme.margin
            spacing: Theme.margin

            readonly property real rowWidth: width - 2 * padding

            RestoredNotice {
                width: column.rowWidth
                visible: root.controller.isRestored
                onDropped: root.controller.dropRestored()
            }
            FormSection {
                width: column.rowWidth

                NaturalLanguageField {
                    id: entry
                    focus: true
                    appState: root.controller.appState
                    text: root.controller.title
                    onEdited: root.controller.title = entry.text
                    onParsed: event => root.controller.applyParsed(event)
                }
            }
            FormSection {
                width: column.rowWidth

                FormRow {
                    label: qsTrId("All Day")

                    ToggleSwitch {
                        accessibleName: qsTrId("All Day")
                        checked: root.controller.isAllDay
                        onToggled: root.controller.isAllDay = checked
                    }
                }
                FormRow {
                    label: qsTrId("Start")

                    DateTimeField {
                        id: start
                        accessibleName: qsTrId("Start")
                        appState: root.controller.appState
                        date: root.controller.startDate
                        dateOnly: root.controller.isAllDay
                        onDateEdited: root.controller.startDate = start.date
                    }
                }
                FormRow {
                    label: qsTrId("End")

                    DateTimeField {
                        id: end
                        accessibleName: qsTrId("End")
                        appState: root.controller.appState
                        date: root.controller.endDate
                        dateOnly: root.controller.isAllDay
                        onDateEdited: root.controller.endDate = end.date
                    }
                }
            }
            FormSection {
                width: column.rowWidth

                LineField {
                    id: location
                    width: parent.width
                    accessibleName: qsTrId("Location")
                    placeholder: qsTrId("Location")
                    text: root.controller.location
                    onEdited: root.controller.location = location.text
                }
                NotesField {
                    id: notes
                    width: parent.width
                    accessibleName: qsTrId("Notes")
                    placeholder: qsTrId("Notes")
                    text: root.controller.notes
                    onEdited: root.controller.notes = notes.text
                }
            }
            FormSection {
                width: column.rowWidth

                RecurrencePicker {
                    id: recurrence
                    recurrenceRule: root.controller.recurrenceRule
                    onEdited: root.controller.recurrenceRule = recurrence.recurrenceRule
                }
                AlertPicker {
                    id: alert
                    alertOffset: root.controller.alertOffset
                    onEdited: root.controller.alertOffset = alert.alertOffset
                }
                CalendarPicker {
                    id: calendar
                    visible: root.controller.hasCalendars
                    calendars: root.controller.calendars
                    selectedCalendarID: root.controller.selectedCalendarID
                    onEdited: root.controller.selectedCalendarID = calendar.selectedCalendarID
                }
            }
        }
    }
    ScrollIndicator {
        flickable: flickable
    }

    /// Takes over what stands in the fields. To be called before what the form holds is used.
    function commit() {
        entry.commit();
        start.commit();
        end.commit();
    }

    /// Scrolls so far that what has the keyboard is in sight.
    function reveal(item: Item) {
        if (!item || !root.activeFocus)
            return;
        const top = item.mapToItem(column, 0, 0).y;
        const lowest = Math.max(0, flickable.contentHeight - flickable.height);
        const wanted = Math.max(Math.min(flickable.contentY, top - Theme.margin), top + Math.min(item.height, flickable.height) + Theme.margin - flickable.height);
        flickable.contentY = Math.max(0, Math.min(lowest, wanted));
    }
}
