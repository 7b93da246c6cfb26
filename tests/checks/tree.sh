#!/usr/bin/env bash
# Rules of the house that a compiler does not check. Prints each line that breaks one.
set -u
cd "$(dirname "$0")/../.."
status=0
fail() {
    echo "$1"
    [ -z "${2:-}" ] || printf '%s\n' "$2" | sed 's/^/    /'
    status=1
}
# rule TEXT PATTERN PATH...: no file below the paths may hold the pattern.
rule() {
    local found
    found=$(grep -rnE --include='*.cpp' --include='*.h' "$2" "${@:3}" 2>/dev/null) && fail "$1" "$found"
}

rooms='engine|catalogue|installers|conflict|menumod|utilities'
logic=(src/engine src/catalogue src/installers src/conflict src/menumod src/utilities)
rule "platform/ must not know the logic or the views:" \
    "#include \"($rooms|views)/" src/platform/*.cpp src/platform/*.h src/platform/headless/session.*
rule "The logic must not know the views or the headless side:" \
    '#include "(views|platform/headless)/' "${logic[@]}"
rule "Only views/ and main.cpp know Qt:" '#include *<(Q[A-Z]|Qt)' src/platform "${logic[@]}"
rule "Only platform/ knows the machine:" \
    '#include *<(filesystem|fstream|unistd\.h|fcntl\.h|dirent\.h|windows\.h|sys/)' \
    "${logic[@]}" src/views src/main.cpp
windows=$(grep -rlE '#include *<windows\.h>' src | grep -v '_windows\.cpp$') &&
    fail "windows.h belongs into *_windows.cpp alone:" "$windows"

for file in $(find tests -name '*_test.cpp' -o -path 'tests/fuzz/*.cpp' | sed 's,^tests/,,'); do
    grep -qF "$file" tests/CMakeLists.txt || fail "tests/$file is in no build"
done
for file in $(find src tests bench demo -name '*.cpp' -o -name '*.h'); do
    head -n 1 "$file" | grep -q '^// ' || fail "$file does not say on its first line what it is for"
done

if command -v clang-format >/dev/null; then
    format=$(find src tests bench demo -name '*.cpp' -o -name '*.h' |
        xargs clang-format --dry-run --Werror 2>&1) || fail "clang-format would change:" "$format"
fi
exit $status
