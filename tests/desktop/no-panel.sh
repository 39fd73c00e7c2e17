#!/usr/bin/env bash
# A desktop without a host for items: our own chip stands in the corner and opens the popover.
set -euo pipefail
panel=none
. "$(dirname "$0")/scenario.sh"

start_mintaro
await 12 "the chip appears" chip
sleep 0.5
picture chip
click_chip
await 3 "a click on the chip opens the popover" popover
sleep 0.6
picture chip-popover
xdotool key Escape
await 3 "Escape closes it" popover_is_gone
kill -0 $mintaro || fail "the program is alive"
