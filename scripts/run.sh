#!/usr/bin/env bash
# Installs what is missing, builds a release build and starts Platewell from
# its per-user folder, seeding that folder with the delivered files once.
set -euo pipefail
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/setup.sh"

install_missing
build_tree "$ROOT/build/release" Release -DPLATEWELL_TESTS=OFF -DPLATEWELL_BENCH=OFF

# The program keeps its files beside the executable. The user's copy of the
# database, settings and profiles lives in one folder of their own, which a
# new build never overwrites: only the program itself is replaced.
FOLDER="${XDG_DATA_HOME:-$HOME/.local/share}/Platewell"
mkdir -p "$FOLDER"
install -m 755 "$ROOT/build/release/platewell" "$FOLDER/platewell.new"
mv -f "$FOLDER/platewell.new" "$FOLDER/platewell"
install -m 644 "$ROOT/data/pw.hlp" "$FOLDER/pw.hlp"
# The manual's pictures, drawn by the build, go beside it.
mkdir -p "$FOLDER/help"
install -m 644 "$ROOT"/build/release/help/*.png "$FOLDER/help/"
for delivered in data.dat tips.txt; do
    if [[ -f "$ROOT/data/$delivered" && ! -e "$FOLDER/$delivered" ]]; then
        cp "$ROOT/data/$delivered" "$FOLDER/$delivered"
    fi
done
exec "$FOLDER/platewell" "$@"
