#!/usr/bin/env bash
# Shared by run.sh and test.sh: installs the Debian packages that are missing
# and configures and builds one build folder.
set -euo pipefail

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
PACKAGES=(g++ cmake ninja-build pkg-config qt6-base-dev libgtest-dev libbenchmark-dev fonts-dejavu-core
          qt6-svg-dev desktop-file-utils appstream shared-mime-info poppler-utils)
# clang with its runtime libraries builds the fuzzers (libFuzzer).
PACKAGES+=(clang libclang-rt-14-dev)
# The end-to-end tests run the program on an X server with a window manager
# and read its message boxes over the accessibility bus.
PACKAGES+=(python3 xvfb xauth openbox xdotool x11-utils imagemagick dbus-daemon libglib2.0-bin at-spi2-core)

install_missing() {
    local missing=()
    for p in "${PACKAGES[@]}" "$@"; do
        if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
            missing+=("$p")
        fi
    done
    if ((${#missing[@]})); then
        local sudo=()
        [[ $(id -u) -eq 0 ]] || sudo=(sudo)
        echo "Installing: ${missing[*]}"
        "${sudo[@]}" apt-get update -qq
        DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
    fi
}

# build_tree <folder> <build type> [cmake options...]
build_tree() {
    local dir="$1" type="$2"
    shift 2
    cmake -S "$ROOT" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE="$type" "$@" >/dev/null
    cmake --build "$dir" --parallel "$(nproc)"
}
