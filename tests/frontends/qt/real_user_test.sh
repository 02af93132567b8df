#!/usr/bin/env bash
# A user at a real X server: xdotool types and clicks, the program shows the form, and the file on the disk is the
# one that the scripted run of the same acts writes, byte for byte. What was recorded meanwhile plays back through both
# front ends.
#   real_user_test.sh PROGRAM
# Exit status 77: skipped, for want of Xvfb or xdotool.
set -euo pipefail
program=$1
# shellcheck source=tests/support/real_user.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../support/real_user.sh"

# Show CODE FLAG...: a screen of a known payment, in the background.
Show() {
  "$program" --today 2026-06-15 --locale en-CA collect "$1" --comp-name 'Summit Levies' --paid-amount 12345 \
    --paid-date 06152026 --enter-name 'Hélène Côté' --enter-title Clerk --seq-number 0001 "${@:2}" &
  shown=$!
  form=$(timeout 30 xdotool search --sync --onlyvisible --pid "$shown" | tail -n 1) || Fail "no form comes up"
}

# By keyboard alone: a wrong month is refused, Enter closes the box, the month is typed over, Enter moves on.
Show 15 --gov-filename "$folder/keyboard.pc4" --record "$folder/keyboard.scenario"
Type 202613
Window '^Fiscalon$' >/dev/null
xdotool key Return
Gone '^Fiscalon$'
Type 202612
Type 12345
xdotool key alt+o
Ended 0

# By mouse too: the amount first, then the month, then OK.
Show 15 --gov-filename "$folder/mouse.pc4" --record "$folder/mouse.scenario"
eval "$(xdotool getwindowgeometry --shell "$form")"
xdotool key Tab
Type 123.45
xdotool key shift+Tab
Type 202612
xdotool mousemove $((X + WIDTH - 145)) $((Y + HEIGHT - 22)) click 1
Ended 0

# Escape is Cancel, and nothing is written.
Show 15 --gov-filename "$folder/cancelled.pc4" 2>"$folder/said"
Type 2026
xdotool key Escape
Ended 1
[[ ! -e "$folder/cancelled.pc4" ]] || Fail "a cancelled screen has written records"

# A list is dropped down, stepped through and left by keyboard; choosing moves the focus on to OK.
Show 20 --comp-code 001052 --gov-filename "$folder/list.pc4" --record "$folder/list.scenario"
Type 202606
Type 12345
xdotool key Return Return Return Return Return
xdotool key alt+Down
xdotool key End Return
xdotool key Return
Ended 0

# What asks by JSON is answered when the form is gone, and by nothing where a signal ends the program.
cat >"$folder/request.json" <<JSON
{"screen": "15", "payment": {"CompName": "Summit Levies", "PaidAmount": "12345", "PaidDate": "06152026",
 "EnterName": "Hélène Côté", "EnterTitle": "Clerk", "SeqNumber": "0001",
 "GovFilename": "$folder/json.pc4", "WriteFile": true}}
JSON
Asked() {
  "$program" --today 2026-06-15 --locale en-CA collect --json <"$folder/request.json" >"$folder/answer.json" &
  shown=$!
  form=$(timeout 30 xdotool search --sync --onlyvisible --pid "$shown" | tail -n 1) || Fail "no form comes up"
}
Asked
Type 202612
Type 12345
[[ ! -s "$folder/answer.json" ]] || Fail "an answer comes before the user's: $(<"$folder/answer.json")"
xdotool key alt+o
Ended 0
[[ "$(<"$folder/answer.json")" == '{"result":true,"records":null}' ]] || Fail "the answer is $(<"$folder/answer.json")"
cmp "$folder/json.pc4" "$folder/keyboard.pc4" || Fail "the records are not those of the same acts"
Asked
kill -TERM "$shown"
Ended 143
[[ ! -s "$folder/answer.json" ]] || Fail "a program that was ended answers: $(<"$folder/answer.json")"

# RecordedInVain COMMAND PLACE REASON: the session can't be written down, which is said; the payment is collected all the
# same. What is printed goes to pipes, which no limit holds for.
RecordedInVain() {
  local whole=$program
  program=$1
  Show 15 --record "$2" > >(cat >"$folder/printed") 2> >(cat >"$folder/said")
  program=$whole
  Type 202612
  Type 12345
  xdotool key alt+o
  Ended 0
  [[ "$(grep -c ^PC40001 "$folder/printed")" == 2 ]] || Fail "the records are not printed: $(<"$folder/printed")"
  local said="fiscalon: the session is not recorded: $2 can't be written: $3"
  [[ "$(<"$folder/said")" == "$said" ]] || Fail "where $2 can't grow it says: $(<"$folder/said")"
}

# A full disk; and one where there is no room for as much as a byte, which leaves an older file as it was.
RecordedInVain "$program" /dev/full 'No space left on device'
mkdir "$folder/small"
echo older >"$folder/small/session.scenario"
cat >"$folder/limited" <<COMMAND
#!/usr/bin/env bash
ulimit -f 0
exec "$program" "\$@"
COMMAND
chmod +x "$folder/limited"
RecordedInVain "$folder/limited" "$folder/small/session.scenario" 'File too large'
[[ "$(ls -A "$folder/small")" == session.scenario && "$(<"$folder/small/session.scenario")" == older ]] ||
  Fail "a recording that found no room has left something behind: $(ls -A "$folder/small")"

# A display that nobody serves.
status=0
DISPLAY=:65432 "$program" collect 15 2>"$folder/said" || status=$?
[[ "$status" == 2 && "$(<"$folder/said")" == *"set DISPLAY"* ]] || Fail "a missing display ends with $status: $(<"$folder/said")"

# Scripted WAY: plays the acts on standard input by the scripted front end, into another file.
Scripted() {
  cat >"$folder/scripted-$1.scenario" <<SCENARIO
today 2026-06-15
host CompName "Summit Levies"
host PaidAmount 12345
host PaidDate 06152026
host EnterName "Hélène Côté"
host EnterTitle Clerk
host SeqNumber 0001
host CompCode 001052
host GovFilename "$folder/scripted-$1.pc4"
host WriteFile True
$(cat)
expect result True
SCENARIO
  "$program" play "$folder/scripted-$1.scenario" >"$folder/play.log" || Fail "$(<"$folder/play.log")"
}

Scripted keyboard <<'ACTS'
show 15
type 202612
type 12345
click cmdOK
ACTS
cp "$folder/scripted-keyboard.pc4" "$folder/scripted-mouse.pc4"
Scripted list <<'ACTS'
show 20
type 202606
type 12345
key Enter
key Enter
key Enter
key Enter
key Enter
choose cmbRemittanceType "Twice Monthly (2nd remittance)"
click cmdOK
ACTS

for way in keyboard mouse list; do
  cmp "$folder/scripted-$way.pc4" "$folder/$way.pc4" || Fail "the records of the $way are not those of the scripted run"
  for toolkit in scripted qt; do
    "$program" play --toolkit "$toolkit" "$folder/$way.scenario" >"$folder/play.log" 2>&1 ||
      Fail "what was recorded of the $way does not play back by $toolkit:
$(<"$folder/play.log")
$(<"$folder/$way.scenario")"
  done
done
echo "ok: keyboard, mouse, list and Escape, as the scripted run"
