#!/usr/bin/env bash
# A host in Python shows the real form of Qt, in its own process and in one of its own, and a user types into it.
#
#   real_user_test.sh PROGRAM
set -euo pipefail
# shellcheck source=tests/support/real_user.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../support/real_user.sh"

cat >"$folder/host.py" <<'PYTHON'
import sys
import threading
import time

import fiscalon

in_process = sys.argv[1] == "here"
if in_process:
    fiscalon.use_front_end("qt")
else:
    fiscalon.use_program(sys.argv[2], toolkit="qt")
# Other threads of the interpreter live on while a form is up.
ticks = []
threading.Thread(target=lambda: [ticks.append(time.sleep(0.01)) for _ in iter(int, 1)], daemon=True).start()
payment = fiscalon.Payment()
payment.comp_name = "Summit Levies"
payment.paid_amount = "12345"
payment.paid_date = "06152026"
payment.enter_name = "Hélène Côté"
payment.seq_number = "0001"
before = len(ticks)
chosen = payment.show("15", in_process=in_process)
print(chosen, len(ticks) > before, *([record.description.rstrip() for record in payment.pc4_records or ()]), sep="\n")
PYTHON

# Collects HOW: the host's records, of which the user sees none before OK.
Collects() {
  PYTHONIOENCODING=utf-8 /usr/bin/python3 "$folder/host.py" "$1" "$program" >"$folder/$1" 2>"$folder/$1.err" &
  shown=$!
  xdotool windowfocus --sync "$(Window 'Summit Levies')"
  Keyboard 'Summit Levies'
  Type 202412
  Type 12345
  xdotool key alt+o
  Gone 'Summit Levies'
  Ended 0
  diff "$folder/$1" - <<'TEXT' || Fail "the records of a form shown $1"
True
True
PC40001T                202412          Hélène Côté
PC40001F01000000000000012345020000000000000000000300000000000000000004000000000000000000
TEXT
}

program=$1
Collects here
Collects elsewhere
