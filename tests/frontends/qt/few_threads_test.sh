#!/usr/bin/env bash
# Where the system makes no threads, or too few for Qt, a picture is refused in one line, and nothing waits for ever.
#   few_threads_test.sh PROGRAM
# Exit status 77: skipped, for root without another user to be, for whom no limit counts.
set -euo pipefail
program=$1

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
chmod 777 "$folder"
Fail() {
  echo "FAIL: $1" >&2
  exit 1
}

# A sanitizer that looks for what is left behind needs a thread, too.
export ASAN_OPTIONS=detect_leaks=0
# A user of whom no other process counts.
as=()
if ((EUID == 0)); then
  as=(setpriv --reuid=54321 --regid=54321 --clear-groups)
  if ! "${as[@]}" test -x "$program" 2>/dev/null; then
    echo "skipped: root is limited by nothing, and another user can't run $program"
    exit 77
  fi
fi

# Picture LIMIT: of so many processes and threads. Status, message and picture are left in the folder.
Picture() {
  rm -f "$folder/picture.png"
  status=0
  # shellcheck disable=SC2016  # the inner shell's own arguments
  timeout --kill-after 2 20 ${as[@]+"${as[@]}"} bash -c 'ulimit -u "$1" && exec "${@:2}"' bash "$1" "$program" picture 15 \
    --out "$folder/picture.png" 2>"$folder/said" || status=$?
}

refused=0
for limit in 1 2 3 4 5 6; do
  Picture "$limit"
  case $status in
    0) [[ -s "$folder/picture.png" ]] || Fail "no picture at $limit" ;;
    2)
      refused=$((refused + 1))
      [[ "$(<"$folder/said")" == 'fiscalon: windows need threads, and the system makes too few: '* &&
        "$(wc -l <"$folder/said")" == 1 ]] || Fail "at $limit it says: $(<"$folder/said")"
      [[ ! -e "$folder/picture.png" ]] || Fail "a picture at $limit"
      ;;
    *) Fail "at $limit it ends with $status: $(<"$folder/said")" ;;
  esac
done
((refused > 0)) || Fail "no limit counts"
echo "ok: refused at $refused limits"
