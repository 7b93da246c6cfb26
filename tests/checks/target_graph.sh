#!/usr/bin/env bash
# target_graph.sh WINDOWS: the libraries of the rooms as CMake links them. Each may link only rooms that
# stand below it in this list, so there can be no circle. WINDOWS is ON where Qt is built.
set -u
cd "$(dirname "$0")/../.."
rooms=(platform formats releases installation cycle menumod conflict commandline windows headless views vexillum)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cmake -G Ninja -S . -B "$folder/build" -DVEXILLUM_WINDOWS="$1" --graphviz="$folder/graph.dot" \
    >"$folder/log" 2>&1 || { cat "$folder/log"; exit 1; }

declare -A rank
for i in "${!rooms[@]}"; do rank[${rooms[i]}]=$i; done
status=0
arrows=0
while read -r from to; do
    [ -n "${rank[$from]:-}" ] && [ -n "${rank[$to]:-}" ] || continue
    arrows=$((arrows + 1))
    if [ "${rank[$from]}" -le "${rank[$to]}" ]; then
        echo "$from links $to, which does not stand below it"
        status=1
    fi
done < <(sed -nE 's,^.*// ([A-Za-z_]+) -> ([A-Za-z_]+)$,\1 \2,p' "$folder/graph.dot")
# The views must not be linked beside the headless side, nor the other way round.
grep -qE '// (views -> headless|headless -> views)$' "$folder/graph.dot" && {
    echo "views and headless are two sides of one toolkit and do not know each other"
    status=1
}
for folder_ in src/*/; do
    room=$(basename "$folder_")
    [ -n "${rank[$room]:-}" ] || { echo "src/$room has no place among the rooms"; status=1; }
done
[ "$arrows" -ge 8 ] || { echo "only $arrows arrows were found"; status=1; }
exit $status
