#!/usr/bin/env bash
# Installs what is missing, builds everything (program, tests, benchmarks,
# tools) and runs every test; then runs the model tests again built with the
# address and undefined-behaviour sanitizers. Fails when any test fails.
set -euo pipefail
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/setup.sh"

install_missing
build_tree "$ROOT/build/test" RelWithDebInfo
(cd "$ROOT/build/test" && QT_QPA_PLATFORM=offscreen ctest --output-on-failure --timeout 600 -j "$(nproc)")

build_tree "$ROOT/build/sanitize" Debug -DPLATEWELL_GUI=OFF -DPLATEWELL_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer"
(cd "$ROOT/build/sanitize" && ctest --output-on-failure --timeout 900 -j "$(nproc)")
