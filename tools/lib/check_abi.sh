#!/usr/bin/env bash
# Whether programs that were linked to the library of TAG run with the one of this tree: compares both by what the
# promised headers declare. Additions are welcome; anything else needs another soname, and then nothing is compared.
#   tools/lib/check_abi.sh TAG
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

readonly tag=$1
readonly work=build/abi

# Library TREE NAME: the tree's library with all that debuggers know of it, and its promised headers, in $work/NAME.
Library() {
  local tree=$1 into=$work/$2
  cmake -S "$tree" -B "$into" -G Ninja -DBUILD_SHARED_LIBS=ON -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG='-O0 -g' \
    -DFISCALON_TESTS=OFF -DFISCALON_TOOLS=OFF -DFISCALON_QT=OFF -DFISCALON_WARNINGS_AS_ERRORS=OFF
  cmake --build "$into" --target fiscalon
  cmake --install "$into" --component development --prefix "$PWD/$into/installed"
}

# Soname NAME: under which name programs ask for that library.
Soname() {
  readelf -d "$work/$1/libfiscalon.so" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p'
}

rm -rf "$work/tree"
git worktree prune
git worktree add --force --detach "$work/tree" "$tag"
trap 'git worktree remove --force "$work/tree"' EXIT
Library "$work/tree" before
Library . now

if [[ "$(Soname before)" != "$(Soname now)" ]]; then
  echo "$tag has another soname: its programs load its own library"
  exit 0
fi
abidiff --no-added-syms --drop-private-types \
  --headers-dir1 "$work/before/installed/include" --headers-dir2 "$work/now/installed/include" \
  "$work/before/libfiscalon.so" "$work/now/libfiscalon.so"
