#!/usr/bin/env bash
# package.sh BUILD|DEB: the package of a build, or one that is made already, is what Debian, software
# centres, readers of manuals and shells expect.
set -u
source=$(cd "$(dirname "$0")/../.." && pwd)
for tool in lintian desktop-file-validate appstreamcli mandoc cpack dpkg-shlibdeps; do
    type "$tool" >/dev/null 2>&1 || { echo "skipped: $tool is not installed"; exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
# silent WHAT COMMAND...: the command finds nothing to say.
silent() {
    local said
    said=$("${@:2}" 2>&1) && [ -z "$said" ] && return
    printf '%s says:\n%s\n' "$1" "$said"
    status=1
}

package=$1
# A build for daily work is not hardened.
suppressed=()
if [ -d "$1" ]; then
    [ -e "$1/CPackConfig.cmake" ] || { echo "skipped: the build was set up without rsvg-convert"; exit 77; }
    cpack --config "$1/CPackConfig.cmake" -B "$work" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
    package=$(echo "$work"/*.deb)
    suppressed=(--suppress-tags hardening-no-fortify-functions,hardening-no-bindnow)
fi
silent lintian lintian --allow-root --display-info --display-experimental --pedantic \
    --tag-display-limit 0 "${suppressed[@]}" "$package"

root=$work/root
dpkg-deb -x "$package" "$root"
silent desktop-file-validate desktop-file-validate --warn-kde "$root/usr/share/applications/vexillum.desktop"
appstreamcli validate --pedantic --no-net --no-color "$root"/usr/share/metainfo/*.xml >"$work/said" 2>&1 &&
    ! grep -qE '^[EWIP]:' "$work/said" || { cat "$work/said"; status=1; }
appstreamcli validate-tree --pedantic --no-net --no-color "$root" >"$work/said" 2>&1 &&
    ! grep -qE '^[EWIP]:' "$work/said" || { cat "$work/said"; status=1; }
manual=$work/vexillum.6
gzip -dc "$root/usr/share/man/man6/vexillum.6.gz" >"$manual"
silent mandoc mandoc -Tlint "$manual"

# What the program offers is told and completed everywhere.
program=$root/usr/games/vexillum
MANWIDTH=80 mandoc -Tascii "$manual" | col -b >"$work/manual.txt"
for file in "$work/manual.txt" "$root"/usr/share/{bash-completion/completions/vexillum,zsh/vendor-completions/_vexillum,fish/vendor_completions.d/vexillum.fish}; do
    for word in $(env -u DISPLAY "$program" --help | grep -oE '^  --[a-z]+' | sort -u); do
        grep -qE -- "(--|-l )${word#--}\\b" "$file" || { echo "${file##*/} does not know $word"; status=1; }
    done
done

game="$work/the game"
mkdir -p "$game"
cp -r "$root/usr/share/games/vexillum" "$game/Vexillum"
mkdir -p "$game/Vexillum"/{"Map-Great Divide",Map-Greenhaven,"Mod-Big (beta)",VXL-Sets}
printf 'Vexillum Set\n' | tee "$game/Vexillum/VXL-Sets/Big Duel.txt" >"$game/Vexillum/VXL-Sets/Duel.txt"
# completed LINE: what bash offers for its last word, with blanks between.
completed() {
    (
        . /usr/share/bash-completion/bash_completion
        . "$root/usr/share/bash-completion/completions/vexillum"
        compopt() { :; }
        # Readline parts words at blanks and equals signs, and leaves quotes in them.
        mapfile -t COMP_WORDS < <(sed 's/\\ /\x1/g; s/ /\n/g; s/=/\n=\n/g; s/\x1/\\ /g' <<<"$1")
        COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) COMP_LINE=$1 COMP_POINT=${#1}
        _vexillum
        printf '%s\n' "${COMPREPLY[@]}" | sort | paste -sd ' '
    )
}
offers() { # SHELL LINE EXPECTED GOT
    [ "$4" = "$3" ] || { printf '%s offers for "%s"\n  %s\nnot\n  %s\n' "$1" "$2" "$4" "$3"; status=1; }
}
if [ -e /usr/share/bash-completion/bash_completion ]; then
    while IFS='|' read -r line expected; do
        offers bash "$line" "$expected" "$(completed "$program $line")"
    done <<ROWS
--l|--launch --list
--list --|--directory --json
--add x --type M|Map Mod
--launch --directory ${game// /\\ } |Big\ Duel Duel
--plan --directory=${game// /\\ } B|Big\ Duel
--remove --directory ${game// /\\ } --type map |Great\ Divide Greenhaven
--remove --directory ${game// /\\ } --type=Mod B|Big\ \(beta\)
--set --directory ${game// /\\ } map+=Gree|Greenhaven
--set com|compress=
--set compress=o|off on
ROWS
fi
if type fish >/dev/null 2>&1; then
    export PATH=$root/usr/games:$PATH
    while IFS='|' read -r line expected; do
        offers fish "$line" "$expected" "$(fish --no-config -c \
            "source $root/usr/share/fish/vendor_completions.d/vexillum.fish; complete -C \"vexillum $line\"" |
            cut -f1 | sort | paste -sd ' ')"
    done <<ROWS
--l|--launch --list
--launch --directory '$game' |Big Duel Duel
--remove --directory '$game' --type map |Great Divide Greenhaven
--set --directory '$game' map+=Gree|map+=Greenhaven
ROWS
fi
if type zsh >/dev/null 2>&1; then
    silent zsh zsh -n "$root/usr/share/zsh/vendor-completions/_vexillum"
fi
exit $status
