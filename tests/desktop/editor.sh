#!/usr/bin/env bash
# A user who types a new event as a sentence, whose disk then fails, and who leaves by the keyboard.
set -euo pipefail
panel=none
. "$(dirname "$0")/scenario.sh"

editor() { xdotool search --onlyvisible --name '^New Event$'; }
editor_is_gone() { ! editor; }
# Of the same height as the popover, which shows no title.
popover_shows() { [ -n "$(popover)" ] && [ -z "$(editor)" ]; }
has_keyboard() { [ "$(xdotool getwindowfocus)" = "$("$1")" ]; }
saved() { grep -rqs "SUMMARY:$1" "$HOME/store/personal"; }

open_popover() {
    xdotool mousemove $chip_at click 1
    await 3 "a click on the chip opens the popover" popover_shows
    await 3 "the popover has the keyboard" has_keyboard popover
}

open_editor() {
    open_popover
    xdotool key ctrl+n
    await 3 "Ctrl+N opens the editor" editor
    await 3 "the editor has the keyboard" has_keyboard editor
    [ "$(xdotool search --onlyvisible --pid $mintaro | wc -l)" = 2 ] || fail "the popover goes, chip and editor stay"
}

start_mintaro
await 12 "the chip appears" chip
eval "$(xdotool getwindowgeometry --shell "$(chip | head -n 1)")"
chip_at="$((X + WIDTH / 2)) $((Y + HEIGHT / 2))"

open_editor
xdotool type "Lunch with Anna tomorrow at Roma"
sleep 0.3
picture editor
xdotool key ctrl+Return
await 3 "the editor closes when it has saved" editor_is_gone
await 3 "what was typed is in a file" saved "Lunch with Anna"
grep -rqs "LOCATION:Roma" "$HOME/store/personal" || fail "the sentence was understood"

# What cannot be saved is told in the popover, and offered again.
open_editor
xdotool type "Dentist"
mv "$HOME/store/personal" "$HOME/store/elsewhere"
xdotool key ctrl+Return
await 3 "the popover tells of the failure" popover_shows
await 3 "the popover has the keyboard" has_keyboard popover
sleep 0.3
picture editor-failure
mv "$HOME/store/elsewhere" "$HOME/store/personal"
xdotool key Escape
sleep 0.3
popover_shows || fail "Escape closes the alert alone"
xdotool key ctrl+n
await 3 "the editor opens" has_keyboard editor
sleep 0.3
picture editor-restored
xdotool key ctrl+Return
await 3 "the input that was offered again is saved" saved "Dentist"
await 3 "the editor closes" editor_is_gone

open_popover
xdotool key ctrl+q
is_gone() { ! kill -0 $mintaro; }
await 3 "Ctrl+Q ends the program" is_gone
wait $mintaro || fail "it ends well"
