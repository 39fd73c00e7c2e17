#!/usr/bin/env bash
# A user of two screens who starts the program again, binds a key to mintaroctl, and expects the popover under the item.
set -euo pipefail
panel=xfce4
. "$(dirname "$0")/scenario.sh"

toggle() { "$bin/mintaroctl" toggle; }
panel_stands() { xprop -root _NET_WORKAREA | grep -q '= 0, [1-9]'; }
has_keyboard() { [ "$(xdotool getwindowfocus)" = "$(popover)" ]; }
# The left and the top edge of the popover's window, which is the card with as much shadow on all sides.
place() {
    eval "$(xdotool getwindowgeometry --shell "$(popover)")"
    echo "$X $Y"
}
close_popover() {
    await 3 "the popover has the keyboard" has_keyboard
    xdotool key Escape
    await 3 "Escape closes the popover" popover_is_gone
}

if toggle 2>"$HOME/toggle"; then fail "there is nothing to toggle"; else status=$?; fi
[ $status = 1 ] && grep -q "not running" "$HOME/toggle" || fail "toggle says that nothing runs: $status, $(cat "$HOME/toggle")"

xrandr --setmonitor left 720/190x800/211+0+0 screen --setmonitor right 560/148x800/211+720+0 none >/dev/null
start_mintaro
await 10 "the item appears" item_service
await 10 "the panel has its place on the screen" panel_stands

# Nobody clicked yet: the corner of the first screen.
started=$(date +%s%N)
"$bin/mintaro" || fail "a second start ends well"
echo "the second start took $((($(date +%s%N) - started) / 1000000)) ms"
await 3 "a second start opens the popover" popover
await 3 "it has the keyboard" has_keyboard
corner=$(place)
"$bin/mintaro"
await 3 "another one closes it" popover_is_gone
toggle
await 3 "mintaroctl opens it" popover
await 3 "it has the keyboard" has_keyboard
[ "$(place)" = "$corner" ] || fail "it opens in the same corner: $(place), not $corner"
[ "${corner% *}" -gt 300 ] && [ "${corner% *}" -lt 720 ] || fail "the corner is that of the first screen: $corner"
picture second-start
toggle
await 3 "mintaroctl closes it" popover_is_gone

# News of the keyboard that the first showing lost must not close the next one.
for _ in 1 2 3; do toggle; done
sleep 1
popover >/dev/null || fail "it stays open after quick toggling"
close_popover

# From the click on the item on, it opens under the item, whoever asks.
click_item
await 3 "a click opens the popover" popover
clicked=$(place)
[ "${clicked% *}" -gt 700 ] || fail "it opens on the screen of the click: $clicked"
picture second-screen
close_popover
toggle
await 3 "mintaroctl opens it" popover
[ "$(place)" = "$clicked" ] || fail "it opens under the item: $(place), not $clicked"
close_popover
menu=$(gdbus call --session --dest "$(item_service)" --object-path /MenuBar \
    --method com.canonical.dbusmenu.GetLayout 0 '@i -1' '@as []')
id=$(echo "$menu" | grep -oE "\(([0-9]+), \{[^}]*Show Calendar" | grep -oE "[0-9]+" | head -n 1)
gdbus call --session --dest "$(item_service)" --object-path /MenuBar \
    --method com.canonical.dbusmenu.Event "$id" clicked "<''>" 0 >/dev/null
await 3 "the item's menu opens it" popover
[ "$(place)" = "$clicked" ] || fail "the menu opens it under the item: $(place), not $clicked"
close_popover

# One that hangs holds up nobody.
kill -STOP $mintaro
if timeout 10 "$bin/mintaro" 2>"$HOME/second"; then status=0; else status=$?; fi
kill -CONT $mintaro
[ $status = 1 ] && grep -q "does not answer" "$HOME/second" || fail "a second start tells of a first that hangs: $status"
kill -0 $mintaro || fail "the program is alive"
