#!/usr/bin/env bash
# The program on Windows, where that system differs: program_test.sh PROGRAM
# What it prints and writes is as everywhere, whatever the names of the files and the ways to give them.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
# shellcheck source=tools/lib/wine.sh
source "$root/tools/lib/wine.sh"

readonly program=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

# Expect STATUS ARGUMENT...: runs the program; what it prints is in out and err.
Expect() {
  local wanted=$1 status=0
  shift
  Wine "$program" "$@" >out 2>err || status=$?
  if [[ "$status" != "$wanted" ]]; then
    echo "fiscalon $*: status $status, not $wanted" && cat out err
    exit 1
  fi
}

# ExpectLine FILE LINE: the line stands in the file as it is here, without a carriage return.
ExpectLine() {
  grep -qxF -- "$2" "$1" || { echo "no line \"$2\" in $1:" && cat "$1" && exit 1; }
}

# Patterns are for the program to expand.
cp "$root/examples/due_date_amount.scenario" one.scenario
cp "$root/examples/record_file.scenario" other.scenario
Expect 0 play '*.scenario'
ExpectLine out '2 passed, 0 failed'

# Names of any alphabet, given and told.
Expect 0 generate --payments 1000 --screen 03 --bad 0.1 --out 'Ω Côté' --today 2026-06-15
ExpectLine out 'Ω Côté.csv, Ω Côté.pc4, Ω Côté.planted.csv: 1000 payments'
[[ "$(ls)" == *'Ω Côté.planted.csv'* ]]

# A report takes the place of an older one.
echo older >report.csv
Expect 1 validate --payments 'Ω Côté.csv' --records 'Ω Côté.pc4' --report report.csv --today 2026-06-15
bad=$(($(wc -l <'Ω Côté.planted.csv') - 1))
((bad > 0))
[[ "$(grep -c ',no,' report.csv)" == "$bad" ]]
[[ "$(head -n 1 report.csv)" == seq,screen,valid,reason ]]

# What may not be replaced stays, and nothing is left beside it.
before=$(ls -a)
Expect 2 generate --payments 1 --screen 03 --out 'Ω Côté'
ExpectLine err $'fiscalon: Ω Côté.csv exists already; --force replaces it\r'
Expect 2 validate --payments 'Ω Côté.csv' --records 'Ω Côté.pc4' --report 'Ω CÔTÉ.PC4'
Expect 2 validate --payments 'Ω Côté.csv' --records 'Ω Côté.pc4' --report 'missing/report.csv'
ExpectLine err $'fiscalon: missing/report.csv can\'t be written: No such file or directory\r'
Expect 2 validate --payments 'Ω Côté.csv' --records missing.pc4 --report report.csv
[[ "$(ls -a)" == "$before" ]]

# What asks by JSON is answered in JSON, with the numbers of all hosts.
echo '{"screen": "99"}' >request.json
Expect 2 collect --json request.json
[[ "$(<out)" == '{"error":{"number":-2147221503,"source":"Fiscalon.ShowLevyraScreen",'* ]]
printf '{"screen": "15",\n "payment": {"PaidAmount": 12345}}' >request.json
Expect 2 collect --json=request.json
[[ "$(<out)" == *'"description":"PaidAmount takes a text",'*'"key":"payment.PaidAmount","line":2}}' ]]
[[ ! -s err ]]
