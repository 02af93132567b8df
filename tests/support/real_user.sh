# shellcheck shell=bash
# A display with nobody else at it, and a user who types and clicks there. Sourced by the tests with a real user; it
# ends them with status 77, skipped, for want of Xvfb, xdotool or what else they name in `needed`. What they start they
# name in `shown`, and `screen` is what they want for a screen.

for tool in ${needed:-Xvfb xdotool}; do
  if ! command -v "$tool" >/dev/null 2>&1; then
    echo "skipped: $tool is not installed (docs/dependencies.md)"
    exit 77
  fi
done

folder=$(mktemp -d)
server='' shown=''
# The server and the program that were started here, by their numbers.
CleanUp() {
  for process in $shown $server; do
    kill "$process" 2>/dev/null || true
  done
  wait 2>/dev/null || true
  rm -rf "$folder"
}
trap CleanUp EXIT

# Otherwise the server begins anew when its last client leaves, and refuses whoever comes at that moment; and a key that
# is let go late, on a busy machine, would repeat itself.
Xvfb -displayfd 3 -screen 0 "${screen:-1280x1024x24}" -nolisten tcp -noreset -r 3>"$folder/display" 2>"$folder/server.log" &
server=$!
for _ in $(seq 100); do
  [[ -s "$folder/display" ]] && break
  sleep 0.1
done
DISPLAY=":$(<"$folder/display")"
export DISPLAY
unset WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR="$folder"
# A display brings libraries along that the sanitizers need not judge.
LSAN_OPTIONS="suppressions=$(dirname "${BASH_SOURCE[0]}")/leak_suppressions.txt:print_suppressions=0"
export LSAN_OPTIONS

Fail() {
  echo "FAIL: $1" >&2
  exit 1
}

# Window TITLE: waits for a window of that title and prints its number.
Window() {
  timeout 30 xdotool search --sync --onlyvisible --name "$1" | tail -n 1
}

# Gone TITLE: waits until there is no such window.
Gone() {
  for _ in $(seq 100); do
    xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
    sleep 0.1
  done
  Fail "the window \"$1\" does not close"
}

# Keyboard TITLE: waits until the window of that title has the keyboard.
Keyboard() {
  for _ in $(seq 100); do
    [[ "$(xdotool getwindowfocus getwindowname 2>/dev/null)" =~ $1 ]] && return 0
    sleep 0.1
  done
  Fail "the window \"$1\" does not get the keyboard"
}

# Ended STATUS: waits for the program.
Ended() {
  local status=0
  wait "$shown" || status=$?
  shown=''
  [[ "$status" == "$1" ]] || Fail "the program ends with $status, not $1"
}

Type() {
  xdotool type --delay 40 -- "$1"
}
