#!/usr/bin/env bash
# Makes what is given to users of Windows, of what is built: the ZIP files of both word sizes in build/windows and
# build/windows32, beside them the installer packages, with checksums; and checks all of them. Where FISCALON_SIGN is
# set, programs, library and installer packages are signed by that command, which takes a file's name and signs it in
# its place.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

for preset in windows windows32; do
  (cd "build/$preset" && rm -f ./*.zip ./*.msi ./*.sha256)
  cpack --preset "$preset"
done
tools/lib/make_msi.py --keys build/windows/component/list_registered_keys.exe build/windows{,32}/*.zip
tools/lib/check_windows_packages.py build/windows{,32}/*.{zip,msi}
