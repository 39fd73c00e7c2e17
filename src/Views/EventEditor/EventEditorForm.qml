import QtQuick

import Mintaro

/// The rows of the event editor.
FormPage {
    id: root

    required property EventEditorViewController controller

    RestoredNotice {
        width: root.sectionWidth
        visible: root.controller.isRestored
        onDropped: root.controller.dropRestored()
    }
    FormSection {
        width: root.sectionWidth

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
        width: root.sectionWidth

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
        width: root.sectionWidth

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
        width: root.sectionWidth

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

    /// Takes over what stands in the fields. To be called before what the form holds is used.
    function commit() {
        entry.commit();
        start.commit();
        end.commit();
    }
}
