<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="countdown.now">
        <source>countdown.now</source>
        <translation>now</translation>
    </message>
    <message id="countdown.relative.minutes %lld">
        <source>countdown.relative.minutes %lld</source>
        <translation>in %1 min</translation>
    </message>
    <message id="countdown.relative.hours %lld">
        <source>countdown.relative.hours %lld</source>
        <translation>in %1 h</translation>
    </message>
    <message id="countdown.relative.hoursMinutes %lld %lld">
        <source>countdown.relative.hoursMinutes %lld %lld</source>
        <translation>in %1 h %2 min</translation>
    </message>
    <message id="All Day">
        <source>All Day</source>
        <translation>All Day</translation>
    </message>
    <message id="Untitled">
        <source>Untitled</source>
        <translation>Untitled</translation>
    </message>
    <message id="Today">
        <source>Today</source>
        <translation>Today</translation>
    </message>
    <message id="Tomorrow">
        <source>Tomorrow</source>
        <translation>Tomorrow</translation>
    </message>
    <message id="W">
        <source>W</source>
        <translation>W</translation>
    </message>
    <message id="No upcoming events">
        <source>No upcoming events</source>
        <translation>No upcoming events</translation>
    </message>
    <message id="Calendar access not granted">
        <source>Calendar access not granted</source>
        <translation>Calendar access not granted</translation>
    </message>
    <message id="Open Privacy Settings">
        <source>Open Privacy Settings</source>
        <translation>Open Calendar Configuration</translation>
    </message>
    <message id="Join %@">
        <source>Join %@</source>
        <translation>Join %1</translation>
    </message>
    <message id="Previous Month">
        <source>Previous Month</source>
        <translation>Previous Month</translation>
    </message>
    <message id="Next Month">
        <source>Next Month</source>
        <translation>Next Month</translation>
    </message>
    <message id="Loading">
        <source>Loading</source>
        <translation>Loading</translation>
    </message>
    <message id="Show Calendar">
        <source>Show Calendar</source>
        <translation>Show Calendar</translation>
    </message>
    <message id="menu.join %@ %@ %@">
        <source>menu.join %@ %@ %@</source>
        <translation>%1 %2 – Join %3</translation>
    </message>
    <message id="Quit">
        <source>Quit</source>
        <translation>Quit</translation>
    </message>
    <message id="accessibility.hasEvents">
        <source>accessibility.hasEvents</source>
        <translation>has events</translation>
    </message>
    <message id="accessibility.completed">
        <source>accessibility.completed</source>
        <translation>completed</translation>
    </message>
    <message id="accessibility.notCompleted">
        <source>accessibility.notCompleted</source>
        <translation>incomplete</translation>
    </message>
    <message id="Title">
        <source>Title</source>
        <translation>Title</translation>
    </message>
    <message id="Event title or natural language...">
        <source>Event title or natural language...</source>
        <translation>Event title or natural language…</translation>
    </message>
    <message id="Repeat">
        <source>Repeat</source>
        <translation>Repeat</translation>
    </message>
    <message id="recurrence.none">
        <source>recurrence.none</source>
        <translation>Never</translation>
    </message>
    <message id="recurrence.daily">
        <source>recurrence.daily</source>
        <translation>Every day</translation>
    </message>
    <message id="recurrence.weekly">
        <source>recurrence.weekly</source>
        <translation>Every week</translation>
    </message>
    <message id="recurrence.monthly">
        <source>recurrence.monthly</source>
        <translation>Every month</translation>
    </message>
    <message id="recurrence.yearly">
        <source>recurrence.yearly</source>
        <translation>Every year</translation>
    </message>
    <message id="Alert">
        <source>Alert</source>
        <translation>Alert</translation>
    </message>
    <message id="alert.none">
        <source>alert.none</source>
        <translation>None</translation>
    </message>
    <message id="alert.atTimeOfEvent">
        <source>alert.atTimeOfEvent</source>
        <translation>At time of event</translation>
    </message>
    <message id="alert.5min">
        <source>alert.5min</source>
        <translation>5 minutes before</translation>
    </message>
    <message id="alert.10min">
        <source>alert.10min</source>
        <translation>10 minutes before</translation>
    </message>
    <message id="alert.15min">
        <source>alert.15min</source>
        <translation>15 minutes before</translation>
    </message>
    <message id="alert.30min">
        <source>alert.30min</source>
        <translation>30 minutes before</translation>
    </message>
    <message id="alert.1hour">
        <source>alert.1hour</source>
        <translation>1 hour before</translation>
    </message>
    <message id="alert.1day">
        <source>alert.1day</source>
        <translation>1 day before</translation>
    </message>
    <message id="Calendar">
        <source>Calendar</source>
        <translation>Calendar</translation>
    </message>
    <message id="This is a repeating event.">
        <source>This is a repeating event.</source>
        <translation>This is a repeating event.</translation>
    </message>
    <message id="Do you want to change only this event or all future events?">
        <source>Do you want to change only this event or all future events?</source>
        <translation>Do you want to change only this event or all future events?</translation>
    </message>
    <message id="Only This Event">
        <source>Only This Event</source>
        <translation>Only This Event</translation>
    </message>
    <message id="All Future Events">
        <source>All Future Events</source>
        <translation>All Future Events</translation>
    </message>
    <message id="accessibility.time %@">
        <source>accessibility.time %@</source>
        <translation>%1, time</translation>
    </message>
    <message id="accessibility.chooseDay %@">
        <source>accessibility.chooseDay %@</source>
        <translation>%1, choose a day</translation>
    </message>
    <message id="New Event">
        <source>New Event</source>
        <translation>New Event</translation>
    </message>
    <message id="New Event (⌘N)">
        <source>New Event (⌘N)</source>
        <translation>New Event (Ctrl+N)</translation>
    </message>
    <message id="Quit Mintaro (⌘Q)">
        <source>Quit Mintaro (⌘Q)</source>
        <translation>Quit Mintaro (Ctrl+Q)</translation>
    </message>
    <message id="Edit Event">
        <source>Edit Event</source>
        <translation>Edit Event</translation>
    </message>
    <message id="Delete Event">
        <source>Delete Event</source>
        <translation>Delete Event</translation>
    </message>
    <message id="Search (⌘F)">
        <source>Search (⌘F)</source>
        <translation>Search (Ctrl+F)</translation>
    </message>
    <message id="Search">
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message id="Search events...">
        <source>Search events...</source>
        <translation>Search events…</translation>
    </message>
    <message id="Search results">
        <source>Search results</source>
        <translation>Search results</translation>
    </message>
    <message id="No results">
        <source>No results</source>
        <translation>No results</translation>
    </message>
    <message id="Done">
        <source>Done</source>
        <translation>Done</translation>
    </message>
    <message id="Clear">
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
    <message id="Copy Event Details">
        <source>Copy Event Details</source>
        <translation>Copy Event Details</translation>
    </message>
    <message id="Open in Calendar">
        <source>Open in Calendar</source>
        <translation>Open in Calendar</translation>
    </message>
    <message id="Copy Meeting Link">
        <source>Copy Meeting Link</source>
        <translation>Copy Meeting Link</translation>
    </message>
    <message id="Mark as Completed">
        <source>Mark as Completed</source>
        <translation>Mark as Completed</translation>
    </message>
    <message id="Mark as Incomplete">
        <source>Mark as Incomplete</source>
        <translation>Mark as Incomplete</translation>
    </message>
    <message id="Open Link">
        <source>Open Link</source>
        <translation>Open Link</translation>
    </message>
    <message id="Copy Reminder Details">
        <source>Copy Reminder Details</source>
        <translation>Copy Reminder Details</translation>
    </message>
    <message id="Open in Reminders">
        <source>Open in Reminders</source>
        <translation>Open in Reminders</translation>
    </message>
    <message id="Delete Reminder">
        <source>Delete Reminder</source>
        <translation>Delete Reminder</translation>
    </message>
    <message id="Delete Event?">
        <source>Delete Event?</source>
        <translation>Delete Event?</translation>
    </message>
    <message id="Are you sure you want to delete &quot;%@&quot;?">
        <source>Are you sure you want to delete "%@"?</source>
        <translation>Are you sure you want to delete "%1"?</translation>
    </message>
    <message id="Delete">
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message id="Cancel">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="Error">
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message id="OK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="Close">
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message id="Save">
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message id="Start">
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message id="End">
        <source>End</source>
        <translation>End</translation>
    </message>
    <message id="Location">
        <source>Location</source>
        <translation>Location</translation>
    </message>
    <message id="Notes">
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message id="editor.restored">
        <source>editor.restored</source>
        <translation>These changes could not be saved.</translation>
    </message>
    <message id="Discard">
        <source>Discard</source>
        <translation>Discard</translation>
    </message>
    <message id="Agenda">
        <source>Agenda</source>
        <translation>Agenda</translation>
    </message>
    <message id="calendarApp.missing">
        <source>calendarApp.missing</source>
        <translation>No installed calendar app can show this day.</translation>
    </message>
    <message id="calendarApp.failed %@">
        <source>calendarApp.failed %@</source>
        <translation>%1 could not be opened.</translation>
    </message>
    <message id="remindersApp.missing">
        <source>remindersApp.missing</source>
        <translation>No app for reminders is installed.</translation>
    </message>
    <message id="notification.joinMeeting">
        <source>notification.joinMeeting</source>
        <translation>Join</translation>
    </message>
    <message id="notification.open">
        <source>notification.open</source>
        <translation>Open</translation>
    </message>
    <message id="notification.dismiss">
        <source>notification.dismiss</source>
        <translation>Dismiss</translation>
    </message>
    <message id="notification.meetingSoon %@ %@ %lld" numerus="yes">
        <source>notification.meetingSoon %@ %@ %lld</source>
        <translation>
            <numerusform>%1: %2 in %n minute</numerusform>
            <numerusform>%1: %2 in %n minutes</numerusform>
        </translation>
    </message>
    <message id="notification.eventIn %@ %lld" numerus="yes">
        <source>notification.eventIn %@ %lld</source>
        <translation>
            <numerusform>%1 starts in %n minute</numerusform>
            <numerusform>%1 starts in %n minutes</numerusform>
        </translation>
    </message>
    <message id="notification.eventStartingSoon">
        <source>notification.eventStartingSoon</source>
        <translation>Event starting soon</translation>
    </message>
    <message id="Settings">
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message id="settings.title">
        <source>settings.title</source>
        <translation>Mintaro Settings</translation>
    </message>
    <message id="General">
        <source>General</source>
        <translation>General</translation>
    </message>
    <message id="Appearance">
        <source>Appearance</source>
        <translation>Appearance</translation>
    </message>
    <message id="Calendars">
        <source>Calendars</source>
        <translation>Calendars</translation>
    </message>
    <message id="Shortcuts">
        <source>Shortcuts</source>
        <translation>Shortcuts</translation>
    </message>
    <message id="World Clock">
        <source>World Clock</source>
        <translation>World Clock</translation>
    </message>
    <message id="About">
        <source>About</source>
        <translation>About</translation>
    </message>
    <message id="Menu Bar">
        <source>Menu Bar</source>
        <translation>Panel</translation>
    </message>
    <message id="Launch at login">
        <source>Launch at login</source>
        <translation>Launch at login</translation>
    </message>
    <message id="Show date in menu bar">
        <source>Show date in menu bar</source>
        <translation>Show date in panel</translation>
    </message>
    <message id="Show next event in menu bar">
        <source>Show next event in menu bar</source>
        <translation>Show next event in panel</translation>
    </message>
    <message id="Show meeting icon">
        <source>Show meeting icon</source>
        <translation>Show meeting icon</translation>
    </message>
    <message id="Countdown format">
        <source>Countdown format</source>
        <translation>Countdown format</translation>
    </message>
    <message id="countdown.format.relative">
        <source>countdown.format.relative</source>
        <translation>Relative (in 5 min)</translation>
    </message>
    <message id="countdown.format.compact">
        <source>countdown.format.compact</source>
        <translation>Compact (5m)</translation>
    </message>
    <message id="countdown.format.absolute">
        <source>countdown.format.absolute</source>
        <translation>Absolute (14:30)</translation>
    </message>
    <message id="Max title length: %lld">
        <source>Max title length: %lld</source>
        <translation>Max title length: %1</translation>
    </message>
    <message id="Date format">
        <source>Date format</source>
        <translation>Date format</translation>
    </message>
    <message id="Uses DateFormatter patterns: d MMM, EEE d, etc.">
        <source>Uses DateFormatter patterns: d MMM, EEE d, etc.</source>
        <translation>Uses Unicode date patterns: d MMM, EEE d, etc.</translation>
    </message>
    <message id="Notifications">
        <source>Notifications</source>
        <translation>Notifications</translation>
    </message>
    <message id="Meeting reminders">
        <source>Meeting reminders</source>
        <translation>Meeting reminders</translation>
    </message>
    <message id="Show a notification before meetings with video links">
        <source>Show a notification before meetings with video links</source>
        <translation>Show a notification before meetings with video links</translation>
    </message>
    <message id="%lld min before">
        <source>%lld min before</source>
        <translation>%1 min before</translation>
    </message>
    <message id="Hourly chime">
        <source>Hourly chime</source>
        <translation>Hourly chime</translation>
    </message>
    <message id="Language">
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message id="language.system">
        <source>language.system</source>
        <translation>Same as the system</translation>
    </message>
    <message id="English">
        <source>English</source>
        <translation>English</translation>
    </message>
    <message id="Italiano">
        <source>Italiano</source>
        <translation>Italiano</translation>
    </message>
    <message id="Restart required to change language">
        <source>Restart required to change language</source>
        <translation>Restart required to change language</translation>
    </message>
    <message id="Updates">
        <source>Updates</source>
        <translation>Updates</translation>
    </message>
    <message id="Check for Updates...">
        <source>Check for Updates...</source>
        <translation>Check for Updates…</translation>
    </message>
    <message id="updates.checking">
        <source>updates.checking</source>
        <translation>Checking…</translation>
    </message>
    <message id="updates.none">
        <source>updates.none</source>
        <translation>Update Mintaro the way you installed it.</translation>
    </message>
    <message id="updates.upToDate">
        <source>updates.upToDate</source>
        <translation>Mintaro is up to date.</translation>
    </message>
    <message id="updates.available %@">
        <source>updates.available %@</source>
        <translation>Mintaro %1 is available.</translation>
    </message>
    <message id="updates.unreachable">
        <source>updates.unreachable</source>
        <translation>The update server cannot be reached.</translation>
    </message>
    <message id="updates.malformed">
        <source>updates.malformed</source>
        <translation>The update server’s answer is not valid.</translation>
    </message>
    <message id="updates.open">
        <source>updates.open</source>
        <translation>Show</translation>
    </message>
    <message id="Colors">
        <source>Colors</source>
        <translation>Colors</translation>
    </message>
    <message id="Use system accent color">
        <source>Use system accent color</source>
        <translation>Use system accent color</translation>
    </message>
    <message id="Accent color (hex)">
        <source>Accent color (hex)</source>
        <translation>Accent color (hex)</translation>
    </message>
    <message id="Font">
        <source>Font</source>
        <translation>Font</translation>
    </message>
    <message id="Event font size: %lldpt">
        <source>Event font size: %lldpt</source>
        <translation>Event font size: %1pt</translation>
    </message>
    <message id="Calendar Access Required">
        <source>Calendar Access Required</source>
        <translation>Calendar Access Required</translation>
    </message>
    <message id="Mintaro needs permission to read your calendars. Grant access in System Settings.">
        <source>Mintaro needs permission to read your calendars. Grant access in System Settings.</source>
        <translation>Mintaro cannot read your calendars. Make sure that the folders named in its configuration are readable.</translation>
    </message>
    <message id="Reminders">
        <source>Reminders</source>
        <translation>Reminders</translation>
    </message>
    <message id="Reminder Lists">
        <source>Reminder Lists</source>
        <translation>Reminder Lists</translation>
    </message>
    <message id="No calendars available">
        <source>No calendars available</source>
        <translation>No calendars available</translation>
    </message>
    <message id="No reminder lists available">
        <source>No reminder lists available</source>
        <translation>No reminder lists available</translation>
    </message>
    <message id="Global Shortcuts">
        <source>Global Shortcuts</source>
        <translation>Global Shortcuts</translation>
    </message>
    <message id="Toggle popover">
        <source>Toggle popover</source>
        <translation>Toggle popover</translation>
    </message>
    <message id="⌥ Space">
        <source>⌥ Space</source>
        <translation>Alt+Space</translation>
    </message>
    <message id="In-App Shortcuts">
        <source>In-App Shortcuts</source>
        <translation>In-App Shortcuts</translation>
    </message>
    <message id="Previous month">
        <source>Previous month</source>
        <translation>Previous month</translation>
    </message>
    <message id="Next month">
        <source>Next month</source>
        <translation>Next month</translation>
    </message>
    <message id="Go to today">
        <source>Go to today</source>
        <translation>Go to today</translation>
    </message>
    <message id="New event">
        <source>New event</source>
        <translation>New event</translation>
    </message>
    <message id="⌘ ←">
        <source>⌘ ←</source>
        <translation>Ctrl+←</translation>
    </message>
    <message id="⌘ →">
        <source>⌘ →</source>
        <translation>Ctrl+→</translation>
    </message>
    <message id="T">
        <source>T</source>
        <translation>T</translation>
    </message>
    <message id="⌘ N">
        <source>⌘ N</source>
        <translation>Ctrl+N</translation>
    </message>
    <message id="⌘ F">
        <source>⌘ F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message id="Version %@ (%@)">
        <source>Version %@ (%@)</source>
        <translation>Version %1 (%2)</translation>
    </message>
    <message id="A lightweight macOS menu bar calendar">
        <source>A lightweight macOS menu bar calendar</source>
        <translation>A lightweight desktop panel calendar</translation>
    </message>
    <message id="Timezones">
        <source>Timezones</source>
        <translation>Timezones</translation>
    </message>
    <message id="No timezones added">
        <source>No timezones added</source>
        <translation>No timezones added</translation>
    </message>
    <message id="Add Timezone...">
        <source>Add Timezone...</source>
        <translation>Add Timezone…</translation>
    </message>
    <message id="Add Timezone">
        <source>Add Timezone</source>
        <translation>Add Timezone</translation>
    </message>
    <message id="Search timezones...">
        <source>Search timezones...</source>
        <translation>Search timezones…</translation>
    </message>
    <message id="accessibility.remove %@">
        <source>accessibility.remove %@</source>
        <translation>Remove %1</translation>
    </message>
    <message id="updates.available.title %@">
        <source>updates.available.title %@</source>
        <translation>Mintaro %1 is available</translation>
    </message>
    <message id="updates.available.body %@">
        <source>updates.available.body %@</source>
        <translation>You have version %1.</translation>
    </message>
    <message id="settings.unsaved">
        <source>settings.unsaved</source>
        <translation>These changes cannot be saved and last until Mintaro ends.</translation>
    </message>
</context>
</TS>
