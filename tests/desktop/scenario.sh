# What the scenarios share; to be sourced. Expects the folder of the programs and one for pictures as $1 and $2, and starts the
# scenario anew inside a session with the panel that it names in $panel.

bin=$1
pictures=$2

fail() {
    echo "FAILED: $*" >&2
    [ -z "${DISPLAY:-}" ] || import -window root "$pictures/failure.png" 2>/dev/null || true
    exit 1
}

# await SECONDS DESCRIPTION COMMAND...: the command must come to succeed within that time.
await() {
    local steps=$(($1 * 20)) what=$2
    shift 2
    while ! "$@" >/dev/null 2>&1; do
        steps=$((steps - 1))
        [ $steps -gt 0 ] || fail "$what"
        sleep 0.05
    done
}

# start_mintaro OPTION...: on a sample store of this moment, or of $sample_moment.
start_mintaro() {
    "$bin/mintaro-sample-store" "$HOME/store" ${sample_moment:+--now "$sample_moment"} >/dev/null
    export XDG_CONFIG_HOME=$HOME/store/config
    # A stand-in for the desktop's opener, which the program finds before any other.
    mkdir -p "$HOME/bin"
    printf '#!/bin/sh\necho "$1" >>"%s/opened"\n' "$HOME" >"$HOME/bin/xdg-open"
    printf '#!/bin/sh\n' >"$HOME/bin/xdg-mime"
    chmod +x "$HOME/bin/xdg-open" "$HOME/bin/xdg-mime"
    PATH=$HOME/bin:$PATH "$bin/mintaro" "$@" 2>"$HOME/log" &
    mintaro=$!
    trap 'kill $mintaro 2>/dev/null || true' EXIT
}

item_service() {
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method org.freedesktop.DBus.ListNames | grep -o 'org\.kde\.StatusNotifierItem-[0-9]*-1' | head -n 1
}

item_property() {
    gdbus call --session --dest "$(item_service)" --object-path /StatusNotifierItem \
        --method org.freedesktop.DBus.Properties.Get org.kde.StatusNotifierItem "$1"
}

label_shows() { item_property XAyatanaLabel | grep -qF "$1"; }

# The popover's window, when it is on the screen. With its shadow it is larger than the card of 320 by 480.
popover() {
    local window
    for window in $(xdotool search --onlyvisible --pid $mintaro 2>/dev/null); do
        eval "$(xdotool getwindowgeometry --shell "$window" 2>/dev/null)"
        [ "${HEIGHT:-0}" -lt 480 ] || { echo "$window"; return 0; }
    done
    return 1
}
# The chip's window, which comes first; the others of the program come after it.
chip() { xdotool search --onlyvisible --pid $mintaro; }

click_chip() {
    eval "$(xdotool getwindowgeometry --shell "$(chip | head -n 1)")"
    xdotool mousemove $((X + WIDTH / 2)) $((Y + HEIGHT / 2)) click 1
}

# The tray is left of the clock at the panel's right end; a click on the item is what tells where it is.
click_item() {
    local x
    for x in $(seq 1150 6 1240); do
        xdotool mousemove "$x" 14 click 1
        sleep 0.15
        ! popover >/dev/null || break
    done
}

popover_is_gone() { ! popover; }

picture() { import -window root "$pictures/$1.png"; }

# How often all threads of the program gave up the processor by themselves.
wakeups() { awk '/^voluntary_ctxt_switches/ { sum += $2 } END { print sum }' /proc/$mintaro/task/*/status; }

if [ "${INSIDE_SESSION:-}" != yes ]; then
    mkdir -p "$pictures"
    INSIDE_SESSION=yes exec "$(dirname "$0")/session.sh" --panel "$panel" -- bash "$0" "$bin" "$pictures"
fi
