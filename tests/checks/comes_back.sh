#!/usr/bin/env bash
# comes_back.sh BUILD: the real window waits for a real game. The game is killed while a program of its
# own lives on; then it is played again, and Vexillum is ended meanwhile.
set -u
for command in Xvfb xvfb-run openbox xdotool; do
    command -v "$command" >/dev/null || { echo "skipped: $command is not installed"; exit 77; }
done
if [ $# -eq 1 ]; then
    game=$(mktemp -d)
    trap 'rm -rf "$game"' EXIT
    cmake --install "$1" --component game --prefix "$game" >/dev/null || exit 1
    mkdir -m 700 "$game/run"
    QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$game/run \
        timeout 150 xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" "$0" "$game" inside
    exit
fi

game=$1
fail() { echo "$1"; exit 1; }
# within SECONDS COMMAND...
within() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do [ $SECONDS -lt $end ] || return 1; sleep 0.1; done
}
isShown() { xdotool search --onlyvisible --name 'Vexillum v3.1 BETA'; }
isAway() { ! isShown; }
isPlain() { [ ! -e "$game/a.ufo" ] && [ -e "$game/Vexillum/Map-New/a.ufo" ]; }
isBlank() { [ "$(tr -d '\r\n' <"$game/Vexillum/VXL-Sel/selMaps.txt")" = "" ]; }
isApplied() { [ -e "$game/a.ufo" ]; }
isGone() { ! kill -0 "$1"; }
launch() { [ -e "$game/game" ] || xdotool key ctrl+g; sleep 0.4; [ -e "$game/game" ]; }

mkdir "$game/Vexillum/Map-New" && echo new >"$game/Vexillum/Map-New/a.ufo"
printf 'New\r\n' >"$game/Vexillum/VXL-Sel/selMaps.txt"
printf 'Come back when the game ends: Yes\r\n' >"$game/Vexillum/VXL-Sel/AfterGame.txt"
cat >"$game/totala.exe" <<'GAME'
#!/bin/sh
(setsid sleep 4 & echo $! >child)
echo $$ >part && mv part game
exec sleep 100
GAME
chmod +x "$game/totala.exe"

# A window that is there before the desktop gets no keys.
openbox --sm-disable --startup "touch '$game/desktop'" >/dev/null 2>&1 &
desktop=$!
within 20 [ -e "$game/desktop" ] || fail "no desktop"
"$game/Vexillum.exe" &
program=$!
trap 'kill $program $desktop $(cat "$game/game" "$game/child" 2>/dev/null) 2>/dev/null' EXIT
within 20 isShown || fail "no window"
within 20 isBlank || fail "the start does not end"

within 20 launch || fail "the game does not start"
within 5 isAway || fail "the window stays in the way"
isApplied || fail "the map is not in the game"
kill -9 "$(cat "$game/game")"
sleep 1.5
isApplied || fail "the launch was undone while a program of the game was running"
within 20 isPlain || fail "the launch is not undone when the game has ended"
within 10 isShown || fail "the window does not come back"
within 20 isBlank || fail "the reset does not end"
isGone $program && fail "the program has ended"

rm "$game/game"
within 20 launch || fail "the game does not start again: is the map still ticked?"
isApplied || fail "the map is not in the game again"
within 5 isAway || fail "the window stays in the way again"
kill -TERM $program
within 10 isGone $program || fail "the program cannot be ended while the game runs"
isApplied || fail "ending the program has undone the launch under the game"
kill -0 "$(cat "$game/game")" || fail "the game has ended with the program"
grep -q New "$game/Vexillum/VXL-Sel/selMaps.txt" || fail "the selection was not saved"
