#!/usr/bin/env bash
# fuzz.sh SECONDS: builds the fuzz targets and runs each for that long. The corpus it finds stays in
# build/fuzz/corpus.
set -euo pipefail
cd "$(dirname "$0")/../.."
cmake --preset fuzz >/dev/null
cmake --build build/fuzz --target make-corpus archive-fuzz menu-fuzz tam-fuzz zip-fuzz
build/fuzz/bin/make-corpus build/fuzz/corpus
for target in archive menu tam zip; do
    build/fuzz/bin/$target-fuzz -max_total_time="$1" -max_len=65536 -rss_limit_mb=1024 \
        -artifact_prefix=build/fuzz/$target- -print_final_stats=1 build/fuzz/corpus/$target \
        2>build/fuzz/$target.log || {
        tail -n 40 build/fuzz/$target.log
        exit 1
    }
    echo "$target: $(grep -h 'number_of_executed_units' build/fuzz/$target.log)"
done
