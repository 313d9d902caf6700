#!/usr/bin/env bash
# Which source lines each test reaches: builds the tests with clang's
# source-based coverage in build/cov, runs every test function alone (a
# GoogleTest case or a QtTest slot, the built program it starts included)
# and writes, for each, the lines of src/ and tools/ it ran to
# build/cov/lines/<executable>__<test>.txt, one "path:line" a line.
# scripts/mutant.py reads them to run only the tests that reach a line.
set -euo pipefail
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/setup.sh"

dir="$ROOT/build/cov"
CC=clang CXX=clang++ build_tree "$dir" Debug -DPLATEWELL_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="-fprofile-instr-generate -fcoverage-mapping" \
    -DCMAKE_EXE_LINKER_FLAGS="-fprofile-instr-generate"
rm -rf "$dir/profiles" "$dir/lines"
mkdir -p "$dir/profiles" "$dir/lines"
export QT_QPA_PLATFORM=offscreen
# Listing the tests writes a profile too; it goes with the rest.
export LLVM_PROFILE_FILE="$dir/profiles/listing.%p.profraw"

# Runs one test alone and turns its profiles into the list of lines it ran.
cover() {
    local exe="$1" name="$2" key="$(basename "$1")__$2"; shift 2
    LLVM_PROFILE_FILE="$dir/profiles/$key.%p.profraw" "$exe" "$@" >/dev/null 2>&1 ||
        echo "failed: $key" >&2
    llvm-profdata merge -sparse -o "$dir/profiles/$key.profdata" "$dir/profiles/$key".*.profraw
    llvm-cov export -format=lcov -instr-profile "$dir/profiles/$key.profdata" "$exe" -object "$dir/platewell" |
        python3 -c '
import os, sys
root, lines, file = sys.argv[1] + "/", set(), None
for line in sys.stdin:
    if line.startswith("SF:"):
        path = os.path.normpath(line[3:].strip())
        file = path[len(root):] if path.startswith(root + "src/") or path.startswith(root + "tools/") else None
    elif file and line.startswith("DA:"):
        number, count = line[3:].split(",")[:2]
        if int(count) > 0:
            lines.add(file + ":" + number)
print("\n".join(sorted(lines)))' "$ROOT" > "$dir/lines/$key.txt"
}

for exe in "$dir"/tests/*_tests; do
    if "$exe" --gtest_list_tests >/dev/null 2>&1; then
        suite=""
        while IFS= read -r line; do
            case "$line" in
                " "*) cover "$exe" "$suite${line// /}" --gtest_filter="$suite${line// /}" ;;
                *) suite="$line" ;;
            esac
        done < <("$exe" --gtest_list_tests | grep -v '^Running')
    else
        for slot in $("$exe" -functions | sed 's/()$//'); do
            cover "$exe" "$slot" "$slot"
        done
    fi
done
echo "$(ls "$dir/lines" | wc -l) tests covered: $dir/lines"
