#!/usr/bin/env bash
# installed.sh PROGRAM DATA: the program as a package installs it, for a user with an empty home: it
# asks, sets a game directory up, launches and resets by window and by command line, and switches.
set -u
program=$(realpath "$1") data=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/usr/games" "$work/usr/share/games" "$work/home" "$work/elsewhere"
cp "$program" "$work/usr/games/vexillum"
cp -r "$data" "$work/usr/share/games/vexillum"
export HOME=$work/home
unset XDG_CONFIG_HOME XDG_DATA_HOME WINEPREFIX VEXILLUM_STOCK
game=$HOME/.wine/drive_c/TA
other=$HOME/Games/Other
status=0
fail() {
    echo "$1"
    [ -z "${2:-}" ] || sed 's/^/    /' <<<"$2"
    status=1
}
cd "$work/elsewhere" || exit 1
# vxl CODE ARGUMENT...: what it printed is in $output.
vxl() {
    local wanted=$1 code
    shift
    output=$(env -u DISPLAY -u WAYLAND_DISPLAY "$work/usr/games/vexillum" "$@" 2>&1)
    code=$?
    [ $code = "$wanted" ] || fail "$* ended with $code, not $wanted:" "$output"
}
says() { [[ $output == *"$1"* ]] || fail "not said: $1" "$output"; }
for directory in "$game" "$other"; do
    mkdir -p "$directory"
    printf '#!/bin/sh\necho "$WRAPPED" >played.txt\n' >"$directory/totala.exe"
    chmod +x "$directory/totala.exe"
done
touch "$HOME/.wine/system.reg"

vxl 1 --list
says "No game directory is known yet."
[ -z "$(find "$HOME" -name '*exillum*')" ] || fail "a list leaves something behind"
vxl 0 --setup --directory "$other"
mkdir "$other/Vexillum/Map-New" && echo new >"$other/Vexillum/Map-New/a.ufo"
vxl 0 --set map=New "wrapper=env WRAPPED=yes"
vxl 0 --launch --wait
[ "$(cat "$other/played.txt" 2>&1)" = yes ] || fail "the wrapper was not used"
[ -e "$other/Vexillum/Map-New/a.ufo" ] || fail "the launch was not undone"
vxl 0 --list --json
says "\"directory\": \"$other\""
vxl 0 --apply

# A newer package brings new texts, and leaves what lies applied alone.
echo "<h1>New</h1>" >"$work/usr/share/games/vexillum/VXL-Help/Index.html"
vxl 0 --setup --directory "$other"
grep -q New "$other/Vexillum/VXL-Help/Index.html" || fail "the help page is the old one"
[ -e "$other/a.ufo" ] || fail "the launch does not lie applied any more"
vxl 0 --reset
rm -rf "$HOME/.config"

for command in Xvfb xvfb-run openbox xdotool; do
    command -v "$command" >/dev/null || { echo "skipped: windows, as $command is not installed"; exit $status; }
done
cat >"$work/windows" <<'INSIDE'
fail() { echo "$1"; xdotool search --onlyvisible --name '.' getwindowname %@ 2>/dev/null; exit 1; }
# within SECONDS COMMAND...
within() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do [ $SECONDS -lt $end ] || return 1; sleep 0.1; done
}
isShown() { xdotool search --onlyvisible --name "$1"; }
press() { sleep 0.3; xdotool key "$1"; }
# A start blanks the files of the selection, which have nothing in them before the first one.
isBlank() { [ -s "$1/Vexillum/VXL-Sel/selTC.txt" ] && [ "$(tr -d '\r\n' <"$1/Vexillum/VXL-Sel/selTC.txt")" = "" ]; }
isSaved() { grep -q Cavedog "$1/Vexillum/VXL-Sel/selTC.txt"; }
isReady() { isShown 'Vexillum v3.1 BETA' && isBlank "$1"; }
openbox >/dev/null 2>&1 &
desktop=$!
trap 'kill $desktop $(jobs -p) 2>/dev/null' EXIT
# Windows get the keys only from a window manager that is there.
within 10 xdotool get_num_desktops || fail "no window manager"
"$PROGRAM" 2>/dev/null &
program=$!
within 20 isShown 'Game Directory' || fail "it does not ask for a directory"
# The wine prefix stands ahead of the library. Enter takes it, and says Yes to the set-up.
take() { [ -d "$1/Vexillum" ] || xdotool key Return; sleep 0.5; isReady "$1"; }
within 30 take "$GAME" || fail "the catalogue does not open in the first directory"
leave() { isSaved "$GAME" || xdotool key ctrl+q; sleep 0.5; isSaved "$GAME"; }
within 20 leave || fail "the window does not close"
wait $program
"$PROGRAM" 2>/dev/null &
within 20 isReady "$GAME" || fail "the directory used last is not opened"
# The window of the directories by its access keys, then the second one in its list.
openDirectories() { isShown 'Game Directory' || { xdotool key alt+m; sleep 0.3; xdotool key d; sleep 0.5; isShown 'Game Directory'; }; }
within 20 openDirectories || fail "the menu does not open the directories"
press Down
press space
press Return
within 20 isReady "$OTHER" || fail "the other directory is not opened"
isSaved "$GAME" || fail "the first directory was not closed as usual"
launch() { [ -e "$OTHER/played.txt" ] || xdotool key ctrl+g; sleep 0.5; [ -e "$OTHER/played.txt" ]; }
within 20 launch || fail "the game does not start"
INSIDE
mkdir -m 700 "$work/run"
rm "$other/played.txt"
PROGRAM=$work/usr/games/vexillum GAME=$game OTHER=$other QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$work/run \
    timeout -k 1 120 xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" bash "$work/windows" || status=1
vxl 0 --directories
[ "$output" = "$other"$'\n'"$game" ] || fail "these directories are known:" "$output"
exit $status
