#!/bin/bash
# The inner half of session.sh: runs on the private bus and display, starts the desktop and then the command.
set -euo pipefail

children=()
cleanup() {
    [ ${#children[@]} -eq 0 ] || kill "${children[@]}" 2>/dev/null || true
    wait 2>/dev/null || true
}
trap cleanup EXIT
trap 'exit 143' TERM INT

start() {
    "$@" >/dev/null 2>&1 &
    children+=($!)
}

# Waits until a name has an owner on the bus.
await_name() {
    gdbus wait --session --timeout 20 "$1" || { echo "session.sh: nobody offers $1" >&2; exit 1; }
}

# First of all: the others would have the bus start it, outside this script's bookkeeping.
xfconfd=$(find /usr/lib -name xfconfd -type f -perm -u+x | head -n 1)
if [ -n "$xfconfd" ]; then
    start "$xfconfd"
    await_name org.xfce.Xfconf
fi
start "$WM"
if [ "$PANEL" = xfce4 ]; then
    start xfce4-panel --disable-wm-check
    await_name org.kde.StatusNotifierWatcher
fi

status=0
"$@" || status=$?
exit "$status"
