#!/usr/bin/env bash
# A user without a mouse: everything in the popover by keys alone, seen with the eyes of a screen reader.
set -euo pipefail
panel=none
sample_moment=2026-03-11T09:00:00
. "$(dirname "$0")/scenario.sh"

at() { /usr/bin/python3 -W ignore "$(dirname "$0")/accessible.py" "$@"; }
key() { xdotool key --delay 40 "$@"; }
# Presses a key until what bears that name has the keyboard.
go_to() {
    local tries=25
    until at focused "$2"; do
        tries=$((tries - 1))
        [ $tries -gt 0 ] || fail "$1 leads to $2: $(at tree | grep focused)"
        key "$1"
    done
}
# How many values of that property all files have.
count() { grep -rhE "^$1" "$HOME/store" --include=*.ics | tr , '\n' | wc -l; }
is() { [ "$(count "$1")" = "$2" ]; }

export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
start_mintaro --now "$sample_moment"
await 12 "the chip appears" chip
click_chip
await 3 "a click opens the popover" popover
await 10 "a screen reader sees it" at sees "March 2026"
at check "New Event" >"$HOME/faults" || fail "every control can be used by a screen reader: $(cat "$HOME/faults")"

# Months and days.
key ctrl+Right
await 3 "Ctrl+Right shows the next month" at sees "April 2026"
key ctrl+Left ctrl+Left
await 3 "Ctrl+Left goes back" at sees "February 2026"
key t
await 3 "T shows today" at selected "Wednesday, March 11, 2026..."
key Right Right Return
await 3 "the arrows and Return select a day" at selected "Friday, March 13, 2026..."
at press "Previous Month" || fail "a screen reader presses a button"
await 3 "the press is done" at sees "February 2026"
key t

# A reminder is completed in its file, and back.
before=$(count STATUS:COMPLETED)
key Tab
go_to Down "Pay the electricity bill..."
key space
await 3 "Space completes the reminder in its file" is STATUS:COMPLETED $((before + 1))
await 3 "the row says so" at sees "Pay the electricity bill, completed"
at checked "Pay the electricity bill" || fail "the check box is ticked for a screen reader"
at press "Pay the electricity bill" || fail "a screen reader presses the check box"
await 3 "the press takes it back" is STATUS:COMPLETED "$before"

# One of a series is found and deleted.
excluded=$(count EXDATE)
key ctrl+f
await 3 "Ctrl+F opens the search" at focused "Search events…"
xdotool type "STAND-UP"
key Return
await 3 "Return searches" at sees "Stand-up, 09:15..."
picture keyboard-search
key Down Menu
await 3 "the menu of a result opens" at focused "Edit Event"
at check "New Event" >"$HOME/faults" || fail "the menu can be used by a screen reader: $(cat "$HOME/faults")"
go_to Down "Delete Event"
key Return
await 3 "it asks how many of the series" at focused "Only This Event"
picture keyboard-span
key Return
await 3 "the file leaves that one out" is EXDATE $((excluded + 1))
key Escape
await 3 "Escape closes the sheet alone" at sees "New Event"
popover >/dev/null || fail "the popover stays"

# Join, and leave.
key t
go_to Tab "Pay the electricity bill..."
go_to Down "Design review..."
key Tab
at focused "Join Zoom" || fail "Tab leads to the row's button"
key Return
await 3 "Return on the button joins" grep -q "zoom.us/j/" "$HOME/opened"
key Escape
await 3 "Escape closes the popover" popover_is_gone
