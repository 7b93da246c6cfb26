#!/usr/bin/env bash
# windows_setup.sh BIN SETUP: the setup and its uninstaller, without questions, under Wine.
set -u
bin=$(realpath "$1") setup=$(realpath "$2")
cd "$(dirname "$0")/../.." && . tests/checks/wine.sh
export DISPLAY=
game=$(mktemp -d)
trap 'rm -rf "$game"' EXIT
status=0
windows() { printf 'Z:%s' "${1//\//\\}"; }
install() { wine64 "$setup" /S "$@" "/D=$(windows "$game")" >/dev/null 2>&1; }
# The copy that Windows' uninstallers make of themselves would not be waited for.
uninstall() {
    cp "$game/Vexillum/VXL-Misc/uninstall.exe" "$game/u.exe"
    wine64 "$game/u.exe" /S "$@" "_?=$(windows "$game/Vexillum/VXL-Misc")" >/dev/null 2>&1
    local result=$?
    rm -f "$game/u.exe"
    return $result
}
expect() { # WHAT COMMAND...
    local what=$1
    shift
    "$@" || { echo "$what"; status=1; }
}
holds() { [ "$(cat "$game/$1" 2>/dev/null)" = "$2" ]; }
isThere() { [ -e "$game/$1" ]; }
isGone() { [ ! -e "$game/$1" ]; }
ends() { # CODE COMMAND...
    local code=$1
    shift
    "$@"
    [ $? = "$code" ]
}

expect "a folder without the game is not refused" ends 2 install
expect "something was put there all the same" isGone Vexillum.exe
expect "told to go on, it does not" ends 0 install /FORCE
expect "the program is not there" isThere Vexillum.exe
rm -rf "${game:?}"/*

cp "$bin/test-sleeper.exe" "$game/totala.exe"
mkdir -p "$game/vexillum/VXL-Changes" "$game/vexillum/VXL-Sel" "$game/vexillum/TC-Cavedog TA" \
    "$game/vexillum/VXL-Help" "$game/vexillum/Map-Mine"
mv "$game/vexillum" "$game/Vexillum"
printf 'MKDIRS\r\nMOVES\r\n' >"$game/Vexillum/VXL-Changes/Internal.txt"
printf 'Mine\r\n' >"$game/Vexillum/VXL-Sel/selMaps.txt"
echo own >"$game/Vexillum/TC-Cavedog TA/info.txt"
echo old >"$game/Vexillum/VXL-Help/Index.html"
echo mine >"$game/Vexillum/Map-Mine/mine.ufo"
echo old >"$game/Vexillum.exe"
expect "it does not install over an older copy" ends 0 install
expect "the journal was touched" holds Vexillum/VXL-Changes/Internal.txt $'MKDIRS\r\nMOVES\r'
expect "a selection was touched" holds Vexillum/VXL-Sel/selMaps.txt $'Mine\r'
expect "a release was touched" holds "Vexillum/TC-Cavedog TA/info.txt" own
expect "the help page is the old one" grep -q '<h1>' "$game/Vexillum/VXL-Help/Index.html"
expect "the program is the old one" cmp -s "$bin/Vexillum.exe" "$game/Vexillum.exe"
expect "no selection file was brought" isThere Vexillum/VXL-Sel/selTC.txt
link=$(find "$WINEPREFIX/drive_c" -name Vexillum.lnk | head -n 1)
expect "there is no entry in the start menu" [ -n "$link" ]

# A release is applied, and removing the program makes the directory plain.
printf 'close\n' |
    wine64 "$bin/vexillum-session.exe" "$(windows "$game")" >/dev/null 2>&1
expect "the release was not applied" holds mine.ufo mine
expect "it does not update with a release applied" ends 0 install
expect "the update moved something" holds mine.ufo mine

# A file that is in the way of its way back keeps the program there.
mkdir "$game/Vexillum/Map-Mine/mine.ufo"
expect "it is removed though the directory is not plain" ends 4 uninstall
expect "the program is gone" isThere Vexillum.exe
rmdir "$game/Vexillum/Map-Mine/mine.ufo"
expect "it is not removed" ends 0 uninstall
expect "the release's file is not back" holds Vexillum/Map-Mine/mine.ufo mine
expect "the directory is not plain" isGone mine.ufo
expect "the program stays" isGone Vexillum.exe
expect "the uninstaller stays" isGone Vexillum/VXL-Misc
expect "the help stays" isGone Vexillum/VXL-Help
expect "the selection of the releases that stay is gone" isThere Vexillum/VXL-Sel/selMaps.txt
expect "the entry in the start menu stays" [ ! -e "$link" ]
expect "the game's own file was touched" cmp -s "$bin/test-sleeper.exe" "$game/totala.exe"

expect "it does not install anew" ends 0 install
expect "the releases were not taken along" ends 0 uninstall /RELEASES
expect "the data tree stays" isGone Vexillum
expect "the game's own file was removed" isThere totala.exe
[ $status = 0 ] && echo "Setup and uninstaller do what they should."
exit $status
