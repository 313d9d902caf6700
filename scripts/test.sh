#!/usr/bin/env bash
# Installs what is missing, builds everything (program, tests, benchmarks,
# tools) and runs every test. Fails when any test fails.
set -euo pipefail
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/setup.sh"

install_missing
build_tree "$ROOT/build/test" RelWithDebInfo
cd "$ROOT/build/test"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure --timeout 600 -j "$(nproc)"
