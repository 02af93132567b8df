#!/usr/bin/env bash
# Every form in a real window at each of the usual scales, on a screen that is large enough.
#   screen_scale_test.sh TEST_PROGRAM
# Exit status 77: skipped, for want of Xvfb.
set -euo pipefail
test_program=$1
screen=3840x2880x24
# shellcheck source=tests/support/real_user.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../support/real_user.sh"

failed=''
for scale in 1 1.25 1.5 1.75 2 2.25; do
  QT_SCALE_FACTOR=$scale "$test_program" --gtest_brief=1 || failed+=" $scale"
done
[[ -z "$failed" ]] || Fail "at the scales$failed"
echo "ok: no form scrolls at any scale"
