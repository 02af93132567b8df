#!/usr/bin/env bash
# Installs the Debian packages of a folder on a machine that has nothing but Debian's base, and uses them as their users
# would: the programs, the examples built against the libraries, the package for Python. Then it upgrades all of them to
# another revision, uses that, and takes everything away. Needs root, debootstrap and a mirror.
#   tools/lib/bare_root.sh FOLDER
set -euo pipefail

readonly packages=$1
readonly suite=bookworm

# Mirror: the one that this machine installs from.
Mirror() {
  # shellcheck disable=SC2016  # the names are apt's
  apt-get indextargets --format '$(REPO_URI) $(CODENAME)' 2>/dev/null | awk -v suite="$suite" '$2 == suite { print $1; exit }'
}

root=$(mktemp -d)
# What is mounted in it goes first: never delete through a mount.
CleanUp() {
  ! mountpoint -q "$root/proc" || umount "$root/proc"
  rm -rf --one-file-system "$root"
}
trap CleanUp EXIT
debootstrap --variant=minbase "$suite" "$root" "$(Mirror)"
cp -L /etc/resolv.conf "$root/etc/resolv.conf"
cp "$packages"/*.deb "$root/root/"
cp -r "$(dirname "${BASH_SOURCE[0]}")/../../examples/c_host" "$root/root/"
# Programs look there for where they lie.
mount -t proc proc "$root/proc"

cat >"$root/root/try" <<'INSIDE'
set -euxo pipefail
cd /root
export DEBIAN_FRONTEND=noninteractive LANG=C.UTF-8
# There is no service manager to start anything with.
printf '#!/bin/sh\nexit 101\n' >/usr/sbin/policy-rc.d && chmod +x /usr/sbin/policy-rc.d
apt-get -q update
# The program alone first: it needs no library of ours, and must say what it lacks where windows are asked for.
apt-get -qy install --no-install-recommends ./fiscalon-tools_*.deb
fiscalon --version
fiscalon screens
fiscalon generate --payments 100 --screen 03 --out trial
fiscalon validate --payments trial.csv --records trial.pc4 --report report.csv
[ "$(wc -l <report.csv)" = 101 ]
if fiscalon picture 15 --out without.png 2>said; then false; fi
grep fiscalon-tools-qt said

apt-get -qy install --no-install-recommends ./fiscalon-tools-qt_*.deb
fiscalon picture 15 --out with.png
[ -s with.png ]
apt-get -qy install --no-install-recommends ./fiscalon-desk_*.deb
QT_QPA_PLATFORM=offscreen fiscalon-desk --help
# It is up until it is ended.
UseDesk() {
  local status=0
  QT_QPA_PLATFORM=offscreen timeout 3 fiscalon-desk || status=$?
  [ "$status" = 124 ]
}
UseDesk
[ -s /usr/share/fiscalon/operator-guide.md ]
[ -s /usr/share/bash-completion/completions/fiscalon ]
[ -s /usr/share/zsh/vendor-completions/_fiscalon ]

# The C library alone: whoever uses it needs nothing of the C++ one.
apt-get -qy install --no-install-recommends ./libfiscalon-c1_*.deb ./libfiscalon-c-dev_*.deb gcc libc6-dev pkgconf
gcc -std=c99 -Wall -Werror c_host/main.c $(pkg-config --cflags --libs fiscalon-c) -o in-c
./in-c

# The same for Python, and its tests of hosts.
apt-get -qy install --no-install-recommends ./python3-fiscalon_*.deb python3-pytest
cat >judge.py <<'PYTHON'
import fiscalon

verdicts = list(fiscalon.validate_batch("trial.csv", "trial.pc4"))
assert len(verdicts) == 100, len(verdicts)

number, screen, _, cents = open("trial.csv").read().splitlines()[1].split(",")
records = [line.strip('"') for line in fiscalon.from_windows_1252(open("trial.pc4", "rb").read()).splitlines()]
check = fiscalon.Check()
check.screen_code, check.payment_amount = screen, cents
check.pc4_records = fiscalon.Records.of(record for record in records if record[3:7] == number)
assert (check.is_info_valid(), check.invalid_reason) == (verdicts[0].valid, verdicts[0].reason), check.invalid_reason
print(fiscalon.version(), verdicts[0])
PYTHON
# The example that the plug-in bears.
python3 - >test_host.py <<'PYTHON'
import textwrap

import fiscalon.pytest_plugin

print("import fiscalon\n\n")
print(textwrap.dedent(fiscalon.pytest_plugin.__doc__.split("\n\n", 1)[1]))
PYTHON
UsePython() {
  python3 judge.py
  python3 -m pytest -q -p no:cacheprovider test_host.py
}
UsePython

apt-get -qy install --no-install-recommends ./libfiscalon[0-9]*_*.deb ./libfiscalon-dev_*.deb g++ cmake make pkgconf qt6-base-dev
fiscalon play /usr/share/doc/libfiscalon-dev/examples/*.scenario
for host in host qt_host; do
  cmake -S "/usr/share/doc/libfiscalon-dev/examples/$host" -B "$host"
  cmake --build "$host"
done
./host/host
g++ -std=c++20 /usr/share/doc/libfiscalon-dev/examples/host/main.cpp $(pkg-config --cflags --libs fiscalon) -o by-pkgconf
./by-pkgconf
apt-get -qy install --no-install-recommends ./libfiscalon-c-qt_*.deb
python3 -c 'import fiscalon; assert fiscalon.front_end_hindrance("qt").find("libfiscalon-c-qt") < 0'

# The next revision of all of them, as a rebuild would be.
mkdir next
for package in *.deb; do
  dpkg-deb --raw-extract "$package" unpacked
  sed -i 's/^Version: .*/&-2/' unpacked/DEBIAN/control
  dpkg-deb --build --root-owner-group unpacked next >/dev/null
  rm -rf unpacked
done
apt-get -qy install --no-install-recommends ./next/*.deb
for package in next/*.deb; do
  [ "$(dpkg-deb -f "$package" Version)" = "$(dpkg-query -W -f '${Version}' "$(dpkg-deb -f "$package" Package)")" ]
done
fiscalon validate --payments trial.csv --records trial.pc4 --report again.csv
cmp report.csv again.csv
UseDesk
UsePython
./in-c
./host/host
./by-pkgconf

apt-get -qy purge 'libfiscalon*' fiscalon-tools python3-fiscalon fiscalon-desk
for left in /usr/bin/fiscalon /usr/bin/fiscalon-desk /usr/include/fiscalon /usr/libexec/fiscalon \
  /usr/lib/python3/dist-packages/fiscalon /usr/share/fiscalon /usr/share/doc/libfiscalon-dev; do
  [ ! -e "$left" ]
done
[ -z "$(compgen -G '/usr/lib/*/libfiscalon*')" ]
[ -z "$(compgen -G '/usr/lib/*/fiscalon-c')" ]
INSIDE
chroot "$root" /bin/bash /root/try
