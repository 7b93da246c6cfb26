#!/usr/bin/env bash
# window_manager.sh BUILD: under a real window manager the main window keeps its place from start to
# start, its title bar and all, and a signal to end that finds the wizard open ends the program for
# good, as one does that comes while the game still runs. Skipped (77) where the programs for it are
# missing.
set -u
if [ -z "${INSIDE_XVFB:-}" ]; then
    for command in Xvfb xvfb-run openbox xdotool; do
        command -v "$command" >/dev/null || { echo "skipped: $command is not installed"; exit 77; }
    done
    INSIDE_XVFB=1 exec xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" "$0" "$@"
fi
game=$(mktemp -d)
# A window that is there before the desktop is not managed as others are.
openbox --sm-disable --startup "touch '$game/desktop'" >/dev/null 2>&1 &
manager=$! program= played=
# Whatever runs out of the game directory, also what nobody here has started.
running() { for exe in /proc/[0-9]*/exe; do
    [ "$(readlink "$exe" 2>/dev/null)" = "$game/Vexillum.exe" ] && basename "$(dirname "$exe")"
done; }
trap 'for pid in $manager $played $(running); do kill "$pid" 2>/dev/null; done; wait; rm -rf "$game"' EXIT
cmake --install "$1" --component game --prefix "$game" >/dev/null || exit 1
printf '#!/bin/sh\n' >"$game/totala.exe"
chmod +x "$game/totala.exe"
export QT_QPA_PLATFORM=xcb HOME=$game XDG_RUNTIME_DIR=$game/run
mkdir -m 700 "$game/run"

# until_ COMMAND...: tries it for ten seconds.
until_() {
    for ((tries = 0; tries < 100; tries++)); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.1
    done
    echo "never: $*"
    exit 1
}
shows() { xdotool search --onlyvisible --name "$1"; }
hides() { ! shows "$1"; }
start() {
    "$game/Vexillum.exe" &
    program=$!
    until_ shows '^Resetting TA Directory'
    until_ hides '^Resetting TA Directory'
    sleep 0.5
    main=$(shows '^Vexillum' | tail -1)
}
isGone() { ! kill -0 "$program"; }
end() {
    kill -TERM "$program"
    until_ isGone
    wait "$program"
}
place() { xdotool getwindowgeometry --shell "$main" | grep -E '^(X|Y|WIDTH|HEIGHT)='; }

until_ [ -e "$game/desktop" ]
start
xdotool windowsize --sync "$main" 800 560 windowmove --sync "$main" 200 150
sleep 0.5
first=$(place)
end
for round in 1 2 3 4; do
    start
    [ "$(place)" = "$first" ] || { echo "start $round: $(place), not $first" | tr '\n' ' '; exit 1; }
    end
done

start
xdotool windowactivate --sync "$main" key alt+a
until_ shows '^Add A TC$'
end
sleep 1
[ -z "$(running)" ] || { echo "it was started anew"; exit 1; }

# The game still runs at the start: a signal ends Vexillum at the question, and while it waits.
cp "$(command -v sleep)" "$game/totala.exe"
"$game/totala.exe" 100 &
played=$!
# Question and main window have one title.
asks() { [ "$(shows '^Vexillum v3.1 BETA$' | wc -l)" -eq 2 ]; }
ask() {
    "$game/Vexillum.exe" &
    program=$!
    until_ asks
}
ask
end
ask
sleep 0.5
xdotool key alt+w
until_ shows '^Waiting'
end
kill "$played"
