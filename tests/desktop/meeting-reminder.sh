#!/usr/bin/env bash
# A user who is reminded of a meeting and joins it: by the button of one notification daemon, by the notification itself of
# another.
set -euo pipefail
panel=none
. "$(dirname "$0")/scenario.sh"

# The sample's meeting is at 10:30; the clock of the program begins three seconds before its reminder is due.
sample_moment=2026-11-25T10:17:30
reminder_soon=2026-11-25T10:24:57

notifyd=$(find /usr/lib -name xfce4-notifyd -type f -perm -u+x | head -n 1)
command -v dunst dunstctl >/dev/null && [ -n "$notifyd" ] || { echo "a notification daemon is missing" >&2; exit 77; }

start_daemon() {
    "$@" >"$HOME/daemon-log" 2>&1 &
    daemon=$!
    gdbus wait --session --timeout 10 org.freedesktop.Notifications || fail "$1 starts"
    trap 'kill $mintaro $daemon 2>/dev/null || true' EXIT
}
stop() {
    kill "$1" && wait "$1" 2>/dev/null || true
}
opened() { grep -qs "zoom.us/j/84215730962" "$HOME/opened"; }

# xfce4-notifyd: the user presses the rightmost of the notification's buttons.
mintaro=
start_daemon "$notifyd"
gdbus monitor --session --dest org.freedesktop.Notifications >"$HOME/signals" &
monitor=$!
start_mintaro --start-at "$reminder_soon"
trap 'kill $mintaro $daemon $monitor 2>/dev/null || true' EXIT
notification() { xdotool search --onlyvisible --pid $daemon; }
await 15 "the reminder appears" notification
sleep 0.5
picture reminder-xfce4-notifyd
eval "$(xdotool getwindowgeometry --shell "$(notification | head -n 1)")"
xdotool mousemove $((X + WIDTH - 50)) $((Y + HEIGHT - 30)) click 1
await 3 "Join opens the meeting's address" opened
grep -q "ActionInvoked.*JOIN_MEETING" "$HOME/signals" || fail "it was the button that joined"
grep -q "Scheduled [1-9][0-9]* meeting notifications" "$HOME/log" || fail "the log says what was scheduled"
stop $mintaro
stop $monitor
stop $daemon

# dunst: the user chooses the notification itself.
rm -rf "$HOME/opened" "$HOME/store"
start_daemon dunst
start_mintaro --start-at "$reminder_soon"
shown() { [ "$(dunstctl count displayed)" = 1 ]; }
await 15 "the reminder appears" shown
sleep 0.3
picture reminder-dunst
dunstctl action
await 3 "the notification itself opens the meeting's address" opened
kill -0 $mintaro || fail "the program is alive"
stop $daemon
