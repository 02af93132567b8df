#!/usr/bin/env bash
# A host in C++ that links the library and its native forms, built from what the ZIP holds and nothing else, with a user
# at the form: linked_host_test.sh ZIP_FOLDER TOOLCHAIN_FILE COMPILER FILL_FORM
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
# shellcheck source=tools/lib/wine.sh
source "$root/tools/lib/wine.sh"

readonly packages=$1 toolchain=$2 compiler=$3 fillForm=$4
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
python3 -m zipfile -e "$packages"/*-windows-x86_64.zip .
# It may lie anywhere.
package="$folder/a package"
mv fiscalon-* "$package"

# UseHost PROGRAM: what each build of it does. Screen "15" makes a record of the period and one of the amounts.
blanks() { printf "%$1s" ''; }
UseHost() {
  local status=0
  Wine "$fillForm" 20241212345 '&OK' "$1" 15 >printed || status=$?
  [[ "$status" == 0 ]] || { echo "$1: status $status" && cat printed && exit 1; }
  tr -d '\r' <printed >out
  printf 'PC40001T%s202412%sAnn Walker%sClerk%s\n' "$(blanks 16)" "$(blanks 10)" "$(blanks 20)" "$(blanks 85)" >wanted
  printf 'PC40001F01%018d02%018d03%018d04%018d%s\n' 12345 0 0 0 "$(blanks 72)" >>wanted
  diff wanted out
  # It has common controls 6, as the library's own manifest asks for them.
  grep -q 'Microsoft.Windows.Common-Controls' "$1"
}

cmake -S "$package/examples/win32_host" -B with_cmake -G Ninja -D CMAKE_BUILD_TYPE=Release \
  -D CMAKE_TOOLCHAIN_FILE="$toolchain" -D CMAKE_PREFIX_PATH="$package" >configured
cmake --build with_cmake >built || { cat built && exit 1; }
UseHost with_cmake/win32_host.exe

export PKG_CONFIG_LIBDIR="$package/lib/pkgconfig"
# Paths with spaces come quoted.
flags=()
eval "flags=($(pkgconf --cflags --libs fiscalon-win32))"
"$compiler" -std=c++20 -static "$package/examples/win32_host/main.cpp" "${flags[@]}" -o with_pkgconf.exe
UseHost with_pkgconf.exe

# What is not for this system is told by its name.
mkdir missing
printf '%s\n' 'cmake_minimum_required(VERSION 3.25)' 'project(missing LANGUAGES CXX)' \
  'find_package(fiscalon REQUIRED COMPONENTS terminal)' >missing/CMakeLists.txt
if cmake -S missing -B without -G Ninja -D CMAKE_TOOLCHAIN_FILE="$toolchain" -D CMAKE_PREFIX_PATH="$package" \
  >out 2>&1; then
  echo "a component that is not there was found" && exit 1
fi
grep -q '"win32" is for Windows, and "terminal" for all other systems' out
