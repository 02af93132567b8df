#!/usr/bin/env bash
# Every form in a real window at each of the usual scales, on a screen that is large enough: by itself, and with a
# window manager that sizes windows by the steps that Qt asks for, which are two pixels of the screen at most scales.
#   screen_scale_test.sh TEST_PROGRAM
# Exit status 77: skipped, for want of Xvfb, xdotool or openbox.
set -euo pipefail
test_program=$1
screen=3840x2880x24
needed='Xvfb xdotool openbox'
# shellcheck source=tests/support/real_user.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../support/real_user.sh"

failed=''
# Scales MANAGER: whoever sizes the windows, for messages.
Scales() {
  for scale in 1 1.25 1.5 1.75 2 2.25; do
    QT_SCALE_FACTOR=$scale timeout 60 "$test_program" --gtest_brief=1 || failed+=" $scale ($1)"
  done
}

Scales 'no window manager'
openbox --sm-disable 2>"$folder/openbox.log" &
shown=$!
for _ in $(seq 100); do
  # Only a window manager knows of desktops.
  xdotool get_desktop >/dev/null 2>&1 && break
  sleep 0.1
done
xdotool get_desktop >/dev/null || Fail "openbox does not come up: $(<"$folder/openbox.log")"
Scales openbox
[[ -z "$failed" ]] || Fail "at the scales$failed"
echo "ok: no form scrolls at any scale"
