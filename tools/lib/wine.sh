#!/usr/bin/env bash
# Runs a program that was built for Windows: tools/lib/wine.sh PROGRAM ARGUMENT...
#   tools/lib/wine.sh --end     ends what Wine leaves running
#   source tools/lib/wine.sh    to call `Wine` and `EndWine` from a script
# Wine keeps its world in build/wine, made by the first call. WINE_PREFIX names another folder.

# WineSettings: the environment of every call. Nothing of the user's own Wine or desktop is touched or looked at.
WineSettings() {
  local root
  root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
  export WINEPREFIX=${WINE_PREFIX:-$root/build/wine}
  # Two are large, and wanted for programs of other kinds; the third would enter programs into the user's own menus; the
  # last would hold on to a program that crashes.
  export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe=;winedbg.exe=' WINEDEBUG=${WINEDEBUG:--all}
  # File names are UTF-8, and the locale is English (United States).
  export LC_ALL=C.UTF-8
  unset DISPLAY WAYLAND_DISPLAY
}

# OnOneProcessor COMMAND...: runs it where all that Wine runs is run. A program and Wine's server answer each other through
# pipes, one at a time; on two processors each is woken from sleep by the other, which takes longer than what they do.
OnOneProcessor() {
  local allowed
  if allowed=$(taskset --cpu-list --pid "$BASHPID" 2>/dev/null); then
    taskset --cpu-list "${allowed##*[!0-9]}" "$@"
  else
    "$@"
  fi
}

# MakeWinePrefix: once, by whoever comes first. The mark is set last, so that a world half made is made anew.
MakeWinePrefix() {
  [[ ! -e "$WINEPREFIX/ready" ]] || return 0
  mkdir -p "$WINEPREFIX"
  (
    flock 9
    [[ ! -e "$WINEPREFIX/ready" ]] || exit 0
    # Forms need no display: they are drawn in memory.
    find "$WINEPREFIX" -mindepth 1 ! -name lock ! -name log -delete &&
      wine wineboot --init &&
      wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f &&
      wine reg add 'HKCU\Software\Wine' /v Version /d win10 /f &&
      wineserver --wait &&
      touch "$WINEPREFIX/ready"
  ) 9>"$WINEPREFIX/lock" >"$WINEPREFIX/log" 2>&1 </dev/null
}

# Wine PROGRAM ARGUMENT...: its output and its status. Wine's server outlives the program for a while, which makes the
# next one start fast, and keeps what it has inherited: so it is given files.
Wine() {
  local output status=0
  WineSettings
  MakeWinePrefix || return
  OnOneProcessor wineserver --persistent=60 >/dev/null 2>&1 </dev/null || true
  output=$(mktemp -d)
  OnOneProcessor wine "$@" >"$output/out" 2>"$output/err" </dev/null || status=$?
  cat "$output/out"
  cat "$output/err" >&2
  rm -rf "$output"
  return "$status"
}

EndWine() {
  WineSettings
  wineserver --kill >/dev/null 2>&1 </dev/null || true
}

if [[ "${BASH_SOURCE[0]}" == "$0" ]]; then
  set -euo pipefail
  case "${1:-}" in
    --end) EndWine ;;
    '') sed -n '2,5s/^# //p' "$0" >&2 && exit 2 ;;
    *) Wine "$@" ;;
  esac
fi
