#!/usr/bin/env bash
# Installs what is missing, builds everything (program, tests, benchmarks,
# tools) and runs every test; then runs the model tests again built with the
# address and undefined-behaviour sanitizers, and, when clang is present,
# every file-reader fuzzer for a short while. Fails when any of them fails.
set -euo pipefail
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/setup.sh"

install_missing
build_tree "$ROOT/build/test" RelWithDebInfo
(cd "$ROOT/build/test" && QT_QPA_PLATFORM=offscreen ctest --output-on-failure --timeout 600 -j "$(nproc)")

build_tree "$ROOT/build/sanitize" Debug -DPLATEWELL_GUI=OFF -DPLATEWELL_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer"
(cd "$ROOT/build/sanitize" && ctest --output-on-failure --timeout 900 -j "$(nproc)")

# Builds the libFuzzer harnesses with clang and runs each for a short while
# (PLATEWELL_FUZZ_SECONDS, 30 by default) on a copy of its seed corpus in
# fuzz/corpus/<harness>, PLATEWELL_FUZZ_JOBS (default: all cores) at a time.
# The readers of texts shown in windows or on a terminal get a dictionary of
# markup tokens. Fails when any harness finds a crash, undefined behaviour, a
# leak, an input that takes over 10 seconds or more than 1 GB of memory (256
# MB in one allocation); what it found is kept in build/fuzz/found.
fuzz_briefly() {
    if ! command -v clang++ >/dev/null 2>&1; then
        echo "clang++ not found: the fuzzers are not run"
        return 0
    fi
    local dir="$ROOT/build/fuzz" seconds="${PLATEWELL_FUZZ_SECONDS:-30}" jobs="${PLATEWELL_FUZZ_JOBS:-$(nproc)}"
    CXX=clang++ build_tree "$dir" RelWithDebInfo -DPLATEWELL_FUZZ=ON -DPLATEWELL_GUI=OFF \
        -DPLATEWELL_TESTS=OFF -DPLATEWELL_BENCH=OFF
    rm -rf "$dir/corpus" "$dir/found" "$dir/logs"
    mkdir -p "$dir/logs"
    local corpus name names=() pids=() pid running
    for corpus in "$ROOT"/fuzz/corpus/*/; do
        name="$(basename "$corpus")"
        names+=("$name")
        mkdir -p "$dir/corpus/$name" "$dir/found/$name"
        cp "$corpus"* "$dir/corpus/$name/"
        (
            status=0
            dict=()
            case "$name" in help_file|analysis_file|profile_file|tips|settings) dict=(-dict="$ROOT/fuzz/dict/markup.dict") ;; esac
            "$dir/fuzz/fuzz_$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -malloc_limit_mb=256 \
                "${dict[@]}" -print_final_stats=1 \
                -artifact_prefix="$dir/found/$name/" "$dir/corpus/$name" >"$dir/logs/$name.log" 2>&1 || status=$?
            echo "$status" >"$dir/logs/$name.status"
        ) &
        pids+=($!)
        while :; do
            running=0
            for pid in "${pids[@]}"; do
                if kill -0 "$pid" 2>/dev/null; then running=$((running + 1)); fi
            done
            if ((running < jobs)); then break; fi
            sleep 1
        done
    done
    wait
    local failed=() runs
    for name in "${names[@]}"; do
        if [[ "$(cat "$dir/logs/$name.status" 2>/dev/null)" == 0 ]]; then
            runs="$(sed -n 's/^stat::number_of_executed_units: *//p' "$dir/logs/$name.log")"
            echo "fuzz_$name: ${runs:-?} inputs in ${seconds} s, no fault"
        else
            failed+=("$name")
            tail -n 40 "$dir/logs/$name.log"
        fi
    done
    if ((${#failed[@]})); then
        echo "Fuzzers that found a fault: ${failed[*]} (the inputs are in $dir/found)"
        return 1
    fi
}
fuzz_briefly
