#!/usr/bin/env bash
# commandline.sh PROGRAM DATA: the commands of the real program without a display: what it ends with and
# prints, beside an open window, in a directory that cannot be written, into streams that nobody reads,
# and with a game that starts another program and dies.
set -u
program=$(realpath "$1") data=$(realpath "$2")
work=$(mktemp -d)
window=
trap '[ -z "$window" ] || kill -KILL $window 2>/dev/null; chmod -R u+w "$work"; rm -rf "$work"' EXIT
game="$work/the game"
# Whoever made a window would need this.
export QT_QPA_PLATFORM=none LC_ALL=C
unset DISPLAY WAYLAND_DISPLAY
status=0
fail() {
    echo "$1"
    [ -z "${2:-}" ] || sed 's/^/    /' <<<"$2"
    status=1
}
# vxl CODE ARGUMENT...: what it printed is in $output and $errors.
vxl() {
    local wanted=$1 code
    shift
    output=$(${as_user:-} "$game/Vexillum.exe" "$@" 2>"$work/errors")
    code=$?
    errors=$(cat "$work/errors")
    [ $code = "$wanted" ] || fail "$* ended with $code, not $wanted:" "$output$errors"
}
says() { [[ $1 == *"$2"* ]] || fail "not said: $2" "$1"; }
has() { [ "$(cat "$game/$1" 2>&1)" = "$2" ] || fail "$1 is not: $2" "$(cat "$game/$1" 2>&1)"; }

mkdir -p "$game/Vexillum/Map-Two Rivers" "$game/Vexillum/Map-Hills"
cp -r "$data/." "$game/Vexillum"
cp "$program" "$game/Vexillum.exe"
echo rivers >"$game/Vexillum/Map-Two Rivers/rivers.tdf"
echo hills >"$game/Vexillum/Map-Hills/hills.tdf"
printf '#!/bin/sh\n(sleep 1; echo lived on >ended.txt) >/dev/null 2>&1 &\n' >"$game/totala.exe"
chmod +x "$game/totala.exe"

vxl 2 --lst
says "$errors" 'There is no command and no option "--lst".'
vxl 2 frobnicate
vxl 0 --help
says "$output" --launch
vxl 0 --set "map=two rivers" map+=Hills
vxl 0 --plan
says "$output" "rivers.tdf -> rivers.tdf"
vxl 0 --check
vxl 0 --list --json
if type jq >/dev/null 2>&1; then
    [ "$(jq -r '.selection.Map | join(",")' <<<"$output")" = "Two Rivers,Hills" ] ||
        fail "the document is:" "$output"
fi
"$game/Vexillum.exe" --list >/dev/full 2>/dev/null && fail "a full disk takes the output"

# From elsewhere, by the name of the directory.
(cd "$work" && "$program" --list --directory "the game" >/dev/null) || fail "another directory cannot be named"

vxl 0 --launch --wait
has ended.txt "lived on"
has "Vexillum/Map-Two Rivers/rivers.tdf" rivers

# The reader is gone before the first move.
"$game/Vexillum.exe" --apply 2>/dev/null | true
has rivers.tdf rivers
has hills.tdf hills
vxl 0 --reset
has "Vexillum/Map-Hills/hills.tdf" hills

# A window has the directory; what it holds is blank on the disk.
QT_QPA_PLATFORM=offscreen "$game/Vexillum.exe" >/dev/null 2>&1 &
window=$!
for ((tries = 0; tries < 200; tries++)); do
    [ "$(tr -d '\r\n' <"$game/Vexillum/VXL-Sel/selMaps.txt")" = "" ] && break
    sleep 0.05
done
vxl 1 --list
says "$errors" "Vexillum is already running in this directory."
vxl 1 --apply --yes
has "Vexillum/Map-Hills/hills.tdf" hills
kill -0 $window || fail "the window is disturbed"
kill -KILL $window
wait $window 2>/dev/null
window=
vxl 0 --set map=Hills

# Nothing can be written there. The superuser could all the same.
as_user=
if [ "$(id -u)" = 0 ]; then
    type setpriv >/dev/null 2>&1 || { echo "skipped: a directory that is read only"; exit $status; }
    chmod a+rx "$work"
    chmod a+w "$work/errors"
    as_user="setpriv --reuid=65534 --regid=65534 --clear-groups"
fi
chmod -R a+rX,a-w "$game"
if ! $as_user test -x "$game/Vexillum.exe"; then
    echo "skipped: a directory that is read only"
    exit $status
fi
before=$(cd "$game" && find . -printf '%p %s %T@\n' | sort)
vxl 0 --list
vxl 0 --plan
vxl 0 --check
vxl 1 --apply
says "$errors" "could not be written"
vxl 1 --set modifier=on
vxl 1 --add "$game/totala.exe" --type Mod --name New
vxl 1 --remove Hills --type Map --yes
[ "$before" = "$(cd "$game" && find . -printf '%p %s %T@\n' | sort)" ] || fail "something was changed"
exit $status
