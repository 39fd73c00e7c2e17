#!/usr/bin/env bash
# A desktop that starts the program by its name on the bus, as the desktop entry asks for.
set -euo pipefail
panel=xfce4
. "$(dirname "$0")/scenario.sh"

id=dev.velmora.mintaro
activate() {
    gdbus call --session --timeout 5 --dest $id --object-path /dev/velmora/mintaro \
        --method org.freedesktop.Application.Activate '{}'
}
bus() {
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method org.freedesktop.DBus."$1" "${@:2}"
}
find_mintaro() { mintaro=$(bus GetConnectionUnixProcessID $id | grep -o '[0-9]*,' | tr -d ,) && [ -n "$mintaro" ]; }
popovers() { xdotool search --onlyvisible --pid $mintaro 2>/dev/null | wc -l; }
is_gone() { bus NameHasOwner $id | grep -q false; }
end_mintaro() {
    kill "$mintaro"
    await 1 "SIGTERM ends it" is_gone
}

services=$XDG_DATA_HOME/dbus-1/services
mkdir -p "$services"
sed "s|^Exec=.*|Exec=$bin/mintaro|" "$(dirname "$bin")/packaging/$id.service" >"$services/$id.service"
bus ReloadConfig >/dev/null

activate >/dev/null || fail "the bus starts it for a call"
find_mintaro || fail "it owns its name"
trap 'kill $mintaro 2>/dev/null || true' EXIT
await 5 "the call opens the popover" popover
sleep 0.5
activate >/dev/null || fail "it answers a second call"
sleep 1
[ "$(popovers)" = 1 ] || fail "one popover stays open: $(popovers)"
picture started-by-the-bus
end_mintaro

bus StartServiceByName $id 0 >/dev/null || fail "the bus starts it without a call"
find_mintaro || fail "it owns its name again"
await 10 "the item appears" item_service
sleep 0.5
[ "$(popovers)" = 0 ] || fail "nobody asked for the popover"
end_mintaro
