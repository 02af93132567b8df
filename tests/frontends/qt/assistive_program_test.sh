#!/usr/bin/env bash
# A user who neither sees nor points: an assistive program fills in forms by the accessibility bus, and the host gets
# the records that the scenarios of these screens expect.
#   assistive_program_test.sh TOLD_FORMS PROGRAM [DESK]
# Exit status 77: skipped, for want of Xvfb, xdotool, the bus or its bindings for Python.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
python=''
for candidate in python3 /usr/bin/python3; do
  if "$candidate" -c 'import gi; gi.require_version("Atspi", "2.0")' >/dev/null 2>&1; then
    python=$candidate
    break
  fi
done
if [[ -z "$python" || ! -e /usr/share/dbus-1/services/org.a11y.Bus.service ]] ||
  ! command -v dbus-run-session >/dev/null 2>&1; then
  echo "skipped: no accessibility bus and its bindings (docs/dependencies.md)"
  exit 77
fi
# shellcheck source=tests/support/real_user.sh
source "$here/../../support/real_user.sh"

# Qt goes on the bus without a desktop that asks for it. Whatever happens, the session ends.
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS
Assists() {
  timeout --kill-after 5 110 dbus-run-session -- "$python" -W ignore::DeprecationWarning -B "$here/$1" \
    "$here/../../scenarios" "${@:2}"
}
Assists assistive_forms.py "$@"
Assists assistive_program.py "$@"
