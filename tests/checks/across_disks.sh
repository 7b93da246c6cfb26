#!/usr/bin/env bash
# across_disks.sh SESSION DATA: a folder of the game directory lies on a disk of its own, so moves into
# it are copies. Needs a mount namespace; skipped (77) where the system gives none.
set -u
runner=$1
data=$2
if [ "${3:-}" != inside ]; then
    unshare -rm true 2>/dev/null || exit 77
    exec unshare -rm "$0" "$runner" "$data" inside
fi
game=$(mktemp -d)
trap 'umount "$game/units"; rm -rf "$game"' EXIT
mkdir -p "$game/Vexillum" "$game/units"
cp -r "$data/." "$game/Vexillum"
mount -t tmpfs none "$game/units" || exit 77
mkdir -p "$game/Vexillum/Mod-New/units"
head -c 3000000 /dev/urandom >"$game/Vexillum/Mod-New/units/big.hpi"
echo new >"$game/Vexillum/Mod-New/units/a.fbi"
echo game >"$game/units/A.fbi"
before=$(cd "$game" && find . -type f ! -path './Vexillum/VXL-*' -exec md5sum {} + | sort)
"$runner" "$game" <<<'tab Mods
mark New
close
answer Yes' >/dev/null || exit 1
[ "$(cat "$game/units/a.fbi")" = new ] || { echo "the release did not arrive"; exit 1; }
[ -e "$game/Vexillum/Mod-New/units/big.hpi" ] && { echo "the original stayed"; exit 1; }
"$runner" "$game" </dev/null >/dev/null || exit 1
after=$(cd "$game" && find . -type f ! -path './Vexillum/VXL-*' -exec md5sum {} + | sort)
diff <(echo "$before") <(echo "$after")
