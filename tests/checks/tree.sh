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

# What a room may include is told by the libraries that it links; these are the headers of the system
# and of Qt, which every room could see.
rule "Only views/ and main.cpp know Qt:" '#include *<(Q[A-Z]|Qt)' \
    src/platform src/formats src/releases src/installation src/cycle src/menumod src/conflict \
    src/commandline src/windows src/headless
rule "Only platform/ knows the machine:" \
    '#include *<(filesystem|fstream|unistd\.h|fcntl\.h|dirent\.h|windows\.h|sys/)' \
    src/formats src/releases src/installation src/cycle src/menumod src/conflict src/commandline \
    src/windows src/headless src/views \
    src/main.cpp
rule "windows.h belongs into platform/windows/ alone:" '#include *<windows\.h>' \
    src/platform/*.cpp src/platform/*.h src/platform/include src/platform/posix
rule "A public header of a room must not lean on a private one:" '#include "[a-z_]+\.h"' src/*/include

for file in $(find tests -name '*_test.cpp' -o -path 'tests/fuzz/*.cpp' | sed 's,^tests/,,'); do
    target=${file#fuzz/}
    grep -qF "$file" tests/CMakeLists.txt ||
        grep -q "add_fuzz_target(${target%_fuzz.cpp} " tests/CMakeLists.txt ||
        fail "tests/$file is in no build"
done
for file in $(find src tests bench demo -name '*.cpp' -o -name '*.h'); do
    head -n 1 "$file" | grep -q '^// ' || fail "$file does not say on its first line what it is for"
done

if command -v clang-format >/dev/null; then
    format=$(find src tests bench demo -name '*.cpp' -o -name '*.h' |
        xargs clang-format --dry-run --Werror 2>&1) || fail "clang-format would change:" "$format"
fi
exit $status
