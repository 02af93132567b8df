#!/usr/bin/env bash
# Whether programs that were linked to the shared libraries of this soname run with those of this tree: they find each
# other where they are built and where they are installed, hosts are built with them and run, and what the promised
# headers declare is compared with what is kept in tools/abi. Additions are welcome; anything else needs another soname:
# in C++ that of another minor version, in C never within version 1.
#   tools/lib/check_abi.sh           compares
#   tools/lib/check_abi.sh --write   keeps those that are begun, and compares the others
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

readonly work=build/abi
# Each library by the headers that promise it.
readonly headers=$work/headers/fiscalon
declare -rA libraries=([fiscalon]=$headers [fiscalon_qt]=$headers [fiscalon-c]=$work/bindings/c/headers)

Usage() {
  sed -n 's/^#   //p' "${BASH_SOURCE[0]}"
}
[[ $# == 0 || ($# == 1 && "$1" == --write) ]] || { Usage >&2 && exit 2; }

# Soname LIBRARY: under which name programs ask for it.
Soname() {
  readelf -d "$1" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p'
}

# The libraries with all that debuggers know of them.
cmake -S . -B "$work" -G Ninja -DBUILD_SHARED_LIBS=ON -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG='-O0 -g' \
  -DFISCALON_TESTS=OFF -DFISCALON_TOOLS=OFF -DFISCALON_QT=ON -DFISCALON_JOINED=ON
cmake --build "$work"
rm -rf "$work/installed" "$work/host"
cmake --install "$work" --prefix "$PWD/$work/installed" >/dev/null

failed=0
while IFS= read -r file; do
  if ldd "$file" | grep 'not found'; then
    echo "$file does not find what it needs"
    failed=1
  fi
done < <(find "$work" -name 'lib*.so' -type f -o -name 'lib*.so' -type l)
for host in host c_host; do
  cmake -S "examples/$host" -B "$work/host/$host" -G Ninja -DCMAKE_PREFIX_PATH="$PWD/$work/installed" >/dev/null
  cmake --build "$work/host/$host" >/dev/null
  "$work/host/$host/host" >/dev/null
done
for library in "${!libraries[@]}"; do
  file=$(find "$work" -path "$work/installed" -prune -o -name "lib$library.so" -print)
  name=$(Soname "$file")
  now=$work/$name.abi kept=tools/abi/$name.abi
  abidw --headers-dir "${libraries[$library]}" --suppressions tools/lib/abi.ini --drop-private-types \
    --drop-undefined-syms --exported-interfaces-only --no-show-locs --no-corpus-path --no-comp-dir-path --no-elf-needed \
    --no-parameter-names --no-write-default-sizes --type-id-style hash "$file" >"$now"
  if [[ "${1:-}" == --write && ! -f "$kept" ]]; then
    mkdir -p tools/abi
    cp "$now" "$kept"
  elif [[ ! -f "$kept" ]]; then
    echo "$kept is not there: $name is begun by tools/lib/check_abi.sh --write"
    failed=1
  else
    echo "$name:"
    abidiff --no-added-syms "$kept" "$now" || failed=1
  fi
done
exit "$failed"
