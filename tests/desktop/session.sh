#!/bin/bash
# Runs a command in an X11 desktop of its own: a virtual screen of 1280x800, a private session bus and home, a window
# manager and, by default, a panel with a tray. Nothing of the user's session is read, and nothing is left behind.
#
#     session.sh [--panel xfce4|none] [--wm xfwm4|openbox] -- COMMAND...
#
# The command finds the panel's tray ready. Ends with the command's status, or 77 where a needed program is missing.
set -euo pipefail

readonly here=$(cd "$(dirname "$0")" && pwd)
panel=xfce4
wm=xfwm4

usage() {
    sed -n 's/^# \{0,1\}//p' "$0" | sed -n 5p >&2
    exit 2
}

while [ $# -gt 0 ]; do
    case $1 in
    --panel) panel=${2:?} && shift 2 ;;
    --wm) wm=${2:?} && shift 2 ;;
    --) shift && break ;;
    *) usage ;;
    esac
done
[ $# -gt 0 ] || usage

need() {
    local program
    for program in "$@"; do
        command -v "$program" >/dev/null || { echo "session.sh: $program is missing" >&2; exit 77; }
    done
}
need Xvfb dbus-run-session gdbus "$wm"
[ "$panel" = none ] || need xfce4-panel

box=$(mktemp -d)
server=
cleanup() {
    if [ -n "$server" ]; then
        kill "$server" 2>/dev/null || true # its clients end with it
        wait "$server" 2>/dev/null || true
    fi
    rm -rf "$box"
}
trap cleanup EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

export HOME=$box XDG_CONFIG_HOME=$box/config XDG_DATA_HOME=$box/data XDG_CACHE_HOME=$box/cache \
    XDG_STATE_HOME=$box/state XDG_RUNTIME_DIR=$box/run XDG_SESSION_TYPE=x11 XDG_CURRENT_DESKTOP=XFCE \
    LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb NO_AT_BRIDGE=1 PANEL=$panel WM=$wm
unset WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS LANGUAGE
mkdir -m 700 "$box/run"
if [ "$panel" = xfce4 ]; then
    install -D -m 600 "$here/xfce4-panel.xml" "$XDG_CONFIG_HOME/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"
fi

# The server writes the number that it found free once it is ready: reading the pipe waits for that.
exec {number}< <(exec Xvfb -displayfd 1 -screen 0 1280x800x24 -nolisten tcp -noreset 2>/dev/null)
server=$!
read -r -t 20 -u "$number" display || { echo "session.sh: Xvfb does not start" >&2; exit 1; }
export DISPLAY=:$display

status=0
dbus-run-session -- bash "$here/session-inside.sh" "$@" || status=$?
exit "$status"
