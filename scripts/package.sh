#!/usr/bin/env bash
# Installs what is missing, builds a release build and makes the Debian
# package from it with CPack; prints the package's path.
set -euo pipefail
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/setup.sh"

# dpkg-shlibdeps (dpkg-dev) and file give the package its library dependencies.
install_missing dpkg-dev file
BUILD="$ROOT/build/package"
build_tree "$BUILD" Release -DPLATEWELL_TESTS=OFF -DPLATEWELL_BENCH=OFF -DCMAKE_INSTALL_PREFIX=/usr
(cd "$BUILD" && cpack -G DEB >/dev/null)
PACKAGE="$(ls -t "$BUILD"/platewell_*.deb | head -n 1)"

# Everything the package installs lies under /usr.
if dpkg-deb --contents "$PACKAGE" | awk '{print $6}' | grep -v '^\./usr/' | grep -v '^\./$'; then
    echo "The package installs files outside /usr" >&2
    exit 1
fi
echo "$PACKAGE"
