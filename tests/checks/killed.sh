#!/usr/bin/env bash
# killed.sh PROGRAM SESSION DATA [EVERY]: the program is killed from outside at every EVERY-th of its
# own calls that change or sync something in the game directory: the real window in a reset, the runner
# in a launch. Behind each the next start makes the directory plain. Skipped (77) where nothing may be
# traced.
set -u
program=$(realpath "$1") runner=$2 data=$3 every=${4:-1}
strace -o /dev/null true 2>/dev/null || { echo "skipped: strace cannot trace here"; exit 77; }
work=$(mktemp -d "$(dirname "$program")/killed.XXXXXX")
trap 'rm -rf "$work"' EXIT
game=$work/game
calls=renameat2,renameat,rename,linkat,unlinkat,mkdirat,write,fsync,fdatasync,syncfs
export QT_QPA_PLATFORM=offscreen LC_ALL=C

put() { mkdir -p "$(dirname "$work/fresh/$1")" && echo "$1" >"$work/fresh/$1"; }
mkdir -p "$work/fresh/Vexillum"
cp -r "$data/." "$work/fresh/Vexillum"
for path in totala.exe a.ufo units/a.fbi Vexillum/Map-One/{a.ufo,units/a.fbi,new/c.ota} \
    Vexillum/Mod-Two/a.ufo; do put "$path"; done
launch='tab Mods
mark Two
tab Maps
mark One
click cmdGo
answer Yes
answer Yes
answer Yes
answer Yes
answer Yes'
cp -r "$work/fresh" "$work/applied"
"$runner" "$work/applied" <<<"$launch" >/dev/null || exit 1
[ -e "$work/applied/new/c.ota" ] || { echo "the launch did not arrive"; exit 1; }

files() { (cd "$1" && find . -type f ! -path './Vexillum/VXL-*' ! -name '.vexillum-part-*' ! -name Vexillum.exe \
    -exec md5sum {} + | sort -k 2); }
plain=$(files "$work/fresh")
# The selection files are blanked last.
isReset() { [ "$(tr -d '\r\n' <"$game/Vexillum/VXL-Sel/selTrlx.txt" 2>/dev/null)" = "" ]; }

# play WHAT STRACE-OPTION...: until it ends or is killed; the real window waits for its user then.
play() {
    local what=$1
    shift
    rm -rf "$game"
    if [ "$what" = launch ]; then
        cp -r "$work/fresh" "$game"
        strace -qq "$@" "$runner" "$game" <<<"$launch" >/dev/null 2>&1
        return
    fi
    cp -r "$work/applied" "$game"
    ln "$program" "$game/Vexillum.exe"
    strace -qq "$@" "$game/Vexillum.exe" >/dev/null 2>&1 &
    local tracer=$! tries
    for ((tries = 0; tries < 200; tries++)); do
        kill -0 $tracer 2>/dev/null || break
        isReset && break
        sleep 0.05
    done
    # The tracer's own death leaves the program to itself, so that goes first.
    kill -KILL $(ps -o pid= --ppid $tracer) 2>/dev/null
    wait $tracer 2>/dev/null
}

status=0 points=0 mixed=0
for what in reset launch; do
    play $what -y -o "$work/calls" -e trace=$calls
    # Which of the calls by that name are about the game directory.
    mapfile -t kills < <(awk -v game="$game" '{ name = $1; sub(/\(.*/, "", name); at = ++count[name] }
        index($0, "<" game) { print name ":" at }' "$work/calls")
    [ ${#kills[@]} -gt 20 ] || { echo "$what: only ${#kills[@]} calls seen"; exit 1; }
    for ((i = 0; i < ${#kills[@]}; i += every)); do
        play $what -o /dev/null -e "trace=${kills[i]%:*}" \
            -e "inject=${kills[i]%:*}:signal=KILL:when=${kills[i]#*:}" 2>/dev/null
        [ "$(files "$game")" = "$plain" ] || mixed=$((mixed + 1))
        "$runner" "$game" </dev/null >"$work/transcript" 2>&1 || status=1
        if [ "$(files "$game")" != "$plain" ] || grep -q '"message"' "$work/transcript"; then
            echo "$what, killed at ${kills[i]}:"
            diff <(echo "$plain") <(files "$game")
            grep '"message"' "$work/transcript"
            status=1
        fi
        points=$((points + 1))
    done
done
echo "$points kills, $mixed of them with files on their way"
[ $mixed -gt 0 ] || status=1
exit $status
