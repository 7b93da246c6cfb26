#!/usr/bin/env bash
# runner.sh SESSION DATA: the session runner as a program: its exit status and its streams.
set -u
runner=$1
game=$(mktemp -d)
trap 'rm -rf "$game"' EXIT
mkdir "$game/Vexillum"
cp -r "$2/." "$game/Vexillum"
status=0
# expect WHAT WANTED SEEN
expect() {
    [ "$2" = "$3" ] && return
    printf '%s\n  wanted: %s\n  seen:   %s\n' "$1" "$2" "$3"
    status=1
}

transcript=$("$runner" "$game" <<<'click cmdGo')
expect "a session that ran" 0 $?
expect "its last line" '{"event":"end","how":"ended"}' "$(tail -n 1 <<<"$transcript")"
expect "its first line" \
    '{"event":"show","window":"frmMain","title":"Vexillum v3.1 BETA","modal":false}' \
    "$(head -n 1 <<<"$transcript")"
expect "the program's start" "{\"event\":\"start\",\"command\":\"$game/totala.exe\",\"window\":\"normal\"}" \
    "$(grep '"start"' <<<"$transcript")"

expect "a script that ran out" '{"event":"end","how":"script"}' \
    "$("$runner" "$game" </dev/null | tail -n 1)"

errors=$("$runner" "$game" 2>&1 >/dev/null <<<'mark Nothing')
expect "a line that cannot be carried out" 2 $?
expect "the line itself" "mark Nothing" "$errors"

rm -f "$game"/Vexillum/VXL-Changes/{State,Human}.txt
{
    printf 'MKDIRS\r\nMOVES\r\n'
    for _ in $(seq 10001); do printf 'a\r\nb\r\n'; done
} >"$game/Vexillum/VXL-Changes/Internal.txt"
"$runner" "$game" </dev/null >/dev/null 2>&1
expect "boxes without end" 3 $?

expect "another command line is no switch" '{"event":"end","how":"script"}' \
    "$(printf 'MKDIRS\r\nMOVES\r\n' >"$game/Vexillum/VXL-Changes/Internal.txt"
        "$runner" "$game" --command-line ' --WIDCF' </dev/null | tail -n 1)"
"$runner" >/dev/null 2>&1
expect "no game directory" 2 $?
exit $status
