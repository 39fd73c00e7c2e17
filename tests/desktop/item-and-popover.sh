#!/usr/bin/env bash
# A user of xfce4-panel: sees the item, opens the popover, moves in it, joins a meeting, and changes a calendar with another
# program.
set -euo pipefail
panel=xfce4
. "$(dirname "$0")/scenario.sh"

start_mintaro
await 10 "the item appears" item_service
await 5 "the label shows the next event" label_shows "Design review"
picture item

click_item
await 3 "a click opens the popover" popover
sleep 0.6
picture popover
window=$(popover)
[ "$(xdotool getwindowfocus)" = "$window" ] || fail "the popover has the keyboard"

# Another month and back with the keyboard alone, then out.
xdotool key ctrl+Right
sleep 0.5
picture next-month
xdotool key t
sleep 0.3
xdotool key Escape
await 3 "Escape closes the popover" popover_is_gone

xdotool click 1
await 3 "another click opens it again" popover
sleep 0.4
xdotool mousemove 300 500 click 1
await 3 "a click on the bare desktop closes it" popover_is_gone

# What another program writes is seen within a second.
event=$(grep -rl "SUMMARY:Design review" "$HOME/store"/*/*/*.ics | head -n 1)
sed 's/SUMMARY:Design review/SUMMARY:Moved review/' "$event" >"$event.tmp"
mv "$event.tmp" "$event"
await 1 "a change of the file changes the label within a second" label_shows "Moved review"
printf 'BEGIN:VCALENDAR\r\nthis is no calendar' >"$(dirname "$event")/broken.ics"
mkdir "$HOME/store/work/new-calendar"
sed 's/SUMMARY:Moved review/SUMMARY:Copied review/; s/^UID:.*/UID:copied@example.org\r/' "$event" >"$HOME/store/work/new-calendar/a.ics"
rm "$event"
await 2 "a new calendar and a removed file are seen" label_shows "Copied review"
await 2 "a broken file costs a log line" grep -q broken.ics "$HOME/log"

# The menu joins the meeting: the address reaches the opener.
menu=$(gdbus call --session --dest "$(item_service)" --object-path /MenuBar \
    --method com.canonical.dbusmenu.GetLayout 0 '@i -1' '@as []' 2>/dev/null || true)
echo "$menu" | grep -q "Join" || fail "the menu offers to join: $menu"
id=$(echo "$menu" | grep -oE "\(([0-9]+), \{[^}]*Join" | head -n 1 | grep -oE "[0-9]+" | head -n 1)
gdbus call --session --dest "$(item_service)" --object-path /MenuBar \
    --method com.canonical.dbusmenu.Event "$id" clicked "<''>" 0 >/dev/null
await 3 "joining opens the meeting's address" grep -q "zoom.us/j/" "$HOME/opened"

# Idle, nothing but the timer of 30 seconds wakes the program.
sleep 2
before=$(wakeups)
sleep 5
after=$(wakeups)
[ $((after - before)) -le 12 ] || fail "idle, the program woke $((after - before)) times in 5 seconds"
kill -0 $mintaro || fail "the program is alive"
