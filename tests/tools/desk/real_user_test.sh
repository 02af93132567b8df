#!/usr/bin/env bash
# A user at a real X server opens the payment desk: one press shows a form, the keyboard comes back to the desk when the
# form has gone, access keys reach its fields, the records are in the file that was named there, and F1 opens the page
# for operators.
#   real_user_test.sh DESK
# Exit status 77: skipped, for want of Xvfb or xdotool.
set -euo pipefail
desk=$1
# shellcheck source=tests/support/real_user.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../support/real_user.sh"

# Refused ARGUMENT...: the desk does not open, and says why.
Refused() {
  local status=0
  "$@" 2>"$folder/said" || status=$?
  [[ "$status" == 2 && -s "$folder/said" ]] || Fail "$* ends with $status: $(<"$folder/said")"
}
Refused "$desk" payment.pc4
Refused env -u DISPLAY -u QT_QPA_PLATFORM "$desk"
[[ "$("$desk" --help)" == *--version* ]] || Fail "the desk does not explain itself"

"$desk" &
shown=$!
Keyboard 'Payment desk'

# The button has the focus, and the form takes the keyboard.
xdotool key Return
Keyboard 'Summit Levies'
Type 202512
xdotool key Escape
Keyboard 'Payment desk'

# A file, by access key; Enter in its field shows the screen.
xdotool key alt+w
xdotool key Tab
Type "$folder/payment.pc4"
xdotool key Return
Keyboard 'Summit Levies'
Type 202512
Type 12345
xdotool key alt+o
Keyboard 'Payment desk'

# In bytes, whatever the locale: the name is in Windows-1252, and the record has 160 characters.
export LC_ALL=C
printf '"%-160s"\r\n' $'PC40001T                202512          H\xE9l\xE8ne C\xF4t\xE9                   Clerk' >"$folder/expected"
head -n 1 "$folder/payment.pc4" | cmp "$folder/expected" - || Fail "the file is not what was typed: $(<"$folder/payment.pc4")"

# The operators' page, as it lies seen from the program.
xdotool key F1
Keyboard 'How forms are filled'
xdotool key Escape
Keyboard 'Payment desk'

# It can be read and closed while a form and one of its boxes are up, which lose nothing by it.
xdotool key F1
Keyboard 'How forms are filled'
page=$(Window 'How forms are filled')
xdotool windowfocus "$(Window 'Payment desk')"
Keyboard 'Payment desk'
xdotool key alt+r
Keyboard 'Summit Levies'
Type 202613
Window '^Fiscalon$' >/dev/null
xdotool windowfocus "$page"
Keyboard 'How forms are filled'
xdotool key Escape
Gone 'How forms are filled'
xdotool windowfocus "$(Window '^Fiscalon$')"
xdotool key Return
Gone '^Fiscalon$'
xdotool windowfocus "$(Window 'Summit Levies')"
Keyboard 'Summit Levies'
Type 202512
Type 12345
xdotool key alt+o
Keyboard 'Payment desk'

xdotool key ctrl+q
Ended 0
echo "ok: one press to a form, and a file by keyboard alone"
