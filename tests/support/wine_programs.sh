#!/usr/bin/env bash
# For tests of programs that were built for Windows: source tests/support/wine_programs.sh, with the sources in $root.
# shellcheck source=tools/lib/wine.sh
source "${root:?}/tools/lib/wine.sh"

# Expect STATUS COMMAND...: runs it; what it prints is in out, without carriage returns.
Expect() {
  local wanted=$1 status=0
  shift
  Wine "$@" >printed 2>errors || status=$?
  tr -d '\r' <printed >out
  if [[ "$status" != "$wanted" ]]; then
    echo "$*: status $status, not $wanted" && cat out errors
    exit 1
  fi
}
