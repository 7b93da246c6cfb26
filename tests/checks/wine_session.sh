#!/usr/bin/env bash
# $VEXILLUM_SESSION, a session runner for Windows, as the checks of a POSIX shell know it: with their
# line ends and paths.
set -o pipefail
. "$(dirname "$0")/wine.sh"
wine64 "$VEXILLUM_SESSION" "$@" 2> >(tr -d '\r' >&2) |
    sed 's/\r$//; /"event":"start"/{ s/"Z:/"/; s,\\\\,/,g }'
