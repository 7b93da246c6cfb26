#!/usr/bin/env bash
# install.sh BUILD: putting the program into a game directory keeps what the user has there, and brings
# no debug information.
set -u
source=$(cd "$(dirname "$0")/../.." && pwd)
game=$(mktemp -d)
trap 'rm -rf "$game"' EXIT
status=0
install() { "$source/scripts/install" "$game" "$1" >/dev/null || status=1; }
expect() {
    [ "$(cat "$game/$1" 2>&1)" = "$2" ] || { echo "$1 is: $(cat "$game/$1" 2>&1)"; status=1; }
}

mkdir -p "$game/vexillum/vxl-changes" "$game/vexillum/VXL-Sel" "$game/vexillum/TC-Cavedog TA" \
    "$game/vexillum/VXL-Help"
echo journal >"$game/vexillum/vxl-changes/internal.TXT"
echo chosen >"$game/vexillum/VXL-Sel/selMaps.txt"
echo mine >"$game/vexillum/TC-Cavedog TA/info.txt"
echo old >"$game/vexillum/VXL-Help/Index.html"
install "$1"
install "$1"
expect vexillum/vxl-changes/internal.TXT journal
expect vexillum/VXL-Sel/selMaps.txt chosen
expect "vexillum/TC-Cavedog TA/info.txt" mine
expect vexillum/VXL-Sel/selTC.txt ""
grep -q '<h1>' "$game/vexillum/VXL-Help/Index.html" || { echo "the help page is the old one"; status=1; }
[ -x "$game/Vexillum.exe" ] || { echo "the program is not there"; status=1; }
sections=$(readelf -SW "$game/Vexillum.exe") && grep -qF .text <<<"$sections" ||
    { echo "the program cannot be read"; status=1; }
left=$(grep -oE '\.(debug_[a-z]+|symtab)' <<<"$sections") && { echo "the program still has" $left; status=1; }
command() { env -u DISPLAY -u WAYLAND_DISPLAY "$game/Vexillum.exe" "$@"; }
[[ $(command --version) == Vexillum\ [0-9]* ]] || { echo "the program does not tell its version"; status=1; }
command --reset >/dev/null && { echo "a journal that cannot be read counts as undone"; status=1; }
expect vexillum/vxl-changes/internal.TXT journal
printf 'MKDIRS\r\nMOVES\r\nVexillum\\TC-Cavedog TA\\info.txt\r\nmoved.txt\r\n' >"$game/vexillum/vxl-changes/internal.TXT"
mv "$game/vexillum/TC-Cavedog TA/info.txt" "$game/moved.txt"
command --reset >/dev/null || { echo "the reset without a display fails"; status=1; }
expect "vexillum/TC-Cavedog TA/info.txt" mine
[ ! -e "$game/Vexillum" ] || { echo "a second data tree was made"; status=1; }

# With an entry in the menu, from a directory whose name means something to shells and entries.
odd="$game/50% of \$game's"
mkdir "$odd"
XDG_DATA_HOME=$game/share "$source/scripts/install" --menu "$odd" "$1" >/dev/null || status=1
entry=$(echo "$game"/share/applications/vexillum-*.desktop)
grep -qxF "Path=$odd" "$entry" || { echo "the entry has another path"; status=1; }
grep -qF "Exec=\"$game/50%% of \\\\\$game's/Vexillum.exe\"" "$entry" || { cat "$entry"; status=1; }
[ -s "$game/share/icons/hicolor/scalable/apps/vexillum.svg" ] || { echo "the icon is not there"; status=1; }
if type desktop-file-validate >/dev/null 2>&1; then
    desktop-file-validate "$entry" || status=1
fi
exit $status
