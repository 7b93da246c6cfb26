#!/usr/bin/env bash
# windows_program.sh BIN [PICTURE]: the real window of the program for Windows, under Wine: a conversion
# is ticked and launched by keys, and the next start moves it back. PICTURE gets what could be seen.
set -u
bin=$(realpath "$1") picture=${2:-}
source=$(cd "$(dirname "$0")/../.." && pwd)
cd "$source" && . tests/checks/wine.sh
if [ -z "${INSIDE_DISPLAY:-}" ]; then
    INSIDE_DISPLAY=1 exec timeout 240 xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi
game=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; rm -rf "$game"' EXIT
fail() {
    echo "$1"
    [ -z "$picture" ] || import -window root "$picture"
    exit 1
}
# Waits up to 40 s for something to hold.
comes() {
    for _ in $(seq 200); do
        "$@" && return
        sleep 0.2
    done
    return 1
}
windowIsThere() { xdotool search --onlyvisible --name 'Vexillum v' >/dev/null 2>&1; }
windowIsGone() { ! windowIsThere; }
isThere() { [ -e "$game/$1" ]; }
isGone() { [ ! -e "$game/$1" ]; }
keys() { xdotool "$@" && sleep 0.5; }

cp "$bin/Vexillum.exe" "$game/"
cp -r data "$game/Vexillum"
cp "$bin/test-sleeper.exe" "$game/totala.exe"
mkdir -p "$game/Vexillum/TC-Great"
echo great >"$game/Vexillum/TC-Great/great.ccx"

wine64 "$game/Vexillum.exe" &
comes windowIsThere || fail "no window came"
sleep 2
keys key ctrl+l
keys type Great
keys key Tab Tab
keys key Home
keys key space
[ -z "$picture" ] || import -window root "$picture"
keys key ctrl+g
comes isThere great.ccx || fail "the launch moved nothing"
comes windowIsGone || fail "the window stays behind the launch"
wait
wine64 "$game/Vexillum.exe" &
comes windowIsThere || fail "no window came at the next start"
comes isGone great.ccx || fail "the next start did not make the directory plain"
[ -e "$game/Vexillum/TC-Great/great.ccx" ] || fail "the release's file is gone"
# Commands rest until the start is over.
closes() { xdotool key ctrl+q; windowIsGone; }
comes closes || fail "the window does not close"
wait
isThere great.ccx || fail "what is chosen is applied when the window closes"
[ "$(wine64 "$game/Vexillum.exe" --version | tr -d '\r')" = "Vexillum $(sed -n 's/^project(Vexillum VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)" ] ||
    fail "the version is another"
wine64 "$game/Vexillum.exe" --reset >/dev/null || fail "the reset by command line failed"
isGone great.ccx || fail "the reset by command line left a file"
wine64 "$game/Vexillum.exe" --nonsense >/dev/null 2>&1
[ $? = 2 ] || fail "a wrong command does not end with 2"
libraries=$(x86_64-w64-mingw32-objdump -p "$bin/Vexillum.exe" | sed -n 's/.*DLL Name: //p' |
    grep -iE '^(lib|qt|zlib|archive)' ) && fail "it needs libraries beside it: $libraries"
echo "The program's window ticks, launches and resets."
