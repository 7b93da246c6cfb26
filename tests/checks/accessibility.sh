#!/usr/bin/env bash
# accessibility.sh BUILD: a map is added from a zip, ticked, launched, taken back and removed in the
# real window by what a screen reader has.
set -u
here=$(cd "$(dirname "$0")" && pwd)
missing() {
    echo "skipped: $1 is not installed"
    exit 77
}
for command in Xvfb xvfb-run dbus-run-session; do
    command -v "$command" >/dev/null || missing "$command"
done
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || missing python3-pyatspi
game=$(mktemp -d)
trap 'rm -rf "$game"' EXIT
cmake --install "$1" --component game --prefix "$game" >/dev/null || exit 1
mkdir "$game/maps" && echo game >"$game/maps/two.ota"
printf '#!/bin/sh\ntouch "$(dirname "$0")/started"\n' >"$game/totala.exe"
chmod +x "$game/totala.exe"

mkdir -m 700 "$game/run"
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$game/run \
    timeout 200 xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" dbus-run-session -- \
    /usr/bin/python3 "$here/accessibility.py" "$game" 2>"$game/errors" || {
    cat "$game/errors"
    exit 1
}
