#!/usr/bin/env bash
# A user who changes the settings in their window, on real folders, and sees the panel, the popover and the files follow.
set -euo pipefail
panel=none
sample_moment=2026-03-11T09:00:00
. "$(dirname "$0")/scenario.sh"

at() { /usr/bin/python3 -W ignore "$(dirname "$0")/accessible.py" "$@"; }
key() { xdotool key --delay 40 "$@"; }
press() { at press "$1" || fail "there is $1 to press: $(at tree)"; }
windows() { xdotool search --onlyvisible --name '^Mintaro Settings$' 2>/dev/null; }
one_window() { [ "$(windows | wc -l)" = 1 ]; }
no_window() { ! windows; }
is_active() { [ "$(xdotool getwindowfocus)" = "$(windows)" ]; }
conf=$HOME/store/config/mintaro/mintaro.conf
stored() { grep -qF "$1" "$conf"; }
does_not_see() { ! at sees "$1"; }

export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
start_mintaro --now "$sample_moment"
await 12 "the chip appears" chip
await 5 "it shows the date" at sees "11 Mar..."

# The gear leads to the one window, and so does every other way.
click_chip
await 3 "a click opens the popover" popover
press "Friday, March 13, 2026..."
await 5 "the agenda begins on that day" at sees "Portare la bici..."
await 3 "the family's events are there" at sees "Lezione di pianoforte..."
press Settings
await 3 "the gear opens the settings" one_window
await 3 "the popover gives way" popover_is_gone
await 3 "the settings have the keyboard" is_active
eval "$(xdotool getwindowgeometry --shell "$(windows)")"
[ "$WIDTH x $HEIGHT" = "450 x 350" ] || fail "the window is 450 by 350: $WIDTH by $HEIGHT"
"$bin/mintaro" --settings || fail "a second start ends well"
sleep 0.5
one_window || fail "there is still one window"
at check "Launch at login" >"$HOME/faults" || fail "a screen reader can use the settings: $(cat "$HOME/faults")"

# General: the label follows at once.
press "Show next event in panel"
await 3 "the file has it" stored ShowNextEventInMenuBar=false
await 3 "what belongs to it goes" does_not_see "Countdown format"
press "Show next event in panel"
for _ in $(seq 12); do at focused "Date format" && break; key Tab; done
at focused "Date format" || fail "Tab leads to the date's format"
key ctrl+a
xdotool type "EEEE"
await 3 "the label shows the weekday" at sees "Wednesday..."
picture settings-general

# Launch at login writes an entry that the desktop can start, and takes it away.
entry=$XDG_CONFIG_HOME/autostart/dev.velmora.mintaro.desktop
press "Launch at login"
await 3 "an entry stands in the autostart folder" test -f "$entry"
desktop-file-validate "$entry" || fail "the entry is a valid one: $(cat "$entry")"
press "Launch at login"
await 3 "the entry goes" test ! -e "$entry"

# Calendars of two folders: one is taken out, and a new one comes by itself.
press Calendars
await 3 "the sources show" at sees Work
press Personal
await 3 "a source opens" at sees Family
press Family
await 3 "all others are written down" stored SelectedCalendars
picture settings-calendars
press Personal
press Work
mkdir "$HOME/store/work/Archive"
await 5 "a calendar made meanwhile shows" at sees Archive
press Work
await 3 "a source closes" does_not_see Archive
press Reminders
await 3 "the lists are written down" stored SelectedReminderLists

# World clocks.
press "World Clock"
press "Add Timezone…"
await 3 "the picker opens" at focused "Search timezones…"
xdotool type tokyo
await 3 "it finds the zone" at sees "Asia/Tokyo, JST"
picture settings-timezones
key Return
await 3 "the zone is on the list" at sees "Remove Tokyo"
await 3 "the file has it" stored WorldClockEntries

# The choice of calendars shows at the next opening of the popover.
key ctrl+w
await 3 "Ctrl+W closes the window" no_window
click_chip
await 3 "the popover opens" popover
await 5 "the popover is there" at sees "New Event"
await 3 "the family's events are gone" does_not_see "Lezione di pianoforte..."
await 3 "and the reminders" does_not_see "Portare la bici..."
kill -0 $mintaro || fail "it runs"
