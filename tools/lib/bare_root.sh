#!/usr/bin/env bash
# Installs the Debian packages of a folder on a machine that has nothing but Debian's base, and uses them as their users
# would: the programs, and the examples built against the library. Needs root, debootstrap and a mirror.
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
[ -s /usr/share/fiscalon/operator-guide.md ]

apt-get -qy install --no-install-recommends ./libfiscalon[0-9]*_*.deb ./libfiscalon-dev_*.deb g++ cmake make pkgconf qt6-base-dev
fiscalon play /usr/share/doc/libfiscalon-dev/examples/*.scenario
for host in host qt_host; do
  cmake -S "/usr/share/doc/libfiscalon-dev/examples/$host" -B "$host"
  cmake --build "$host"
done
./host/host
apt-get -qy install --no-install-recommends ./libfiscalon-c1_*.deb ./libfiscalon-c-dev_*.deb
gcc -std=c99 /usr/share/doc/libfiscalon-dev/examples/c_host/main.c $(pkg-config --cflags --libs fiscalon-c) -o in-c
./in-c
g++ -std=c++20 /usr/share/doc/libfiscalon-dev/examples/host/main.cpp $(pkg-config --cflags --libs fiscalon) -o by-pkgconf
./by-pkgconf

apt-get -qy purge 'libfiscalon*' fiscalon-tools
[ ! -e /usr/bin/fiscalon ] && [ ! -e /usr/include/fiscalon ] && [ ! -e /usr/libexec/fiscalon ]
INSIDE
chroot "$root" /bin/bash /root/try
