#!/usr/bin/env bash
# The installer packages as administrators and users meet them: msi_test.sh ZIP_FOLDER KEYS_PROGRAM
# What they register is what the component registers itself, and nothing is left of what is removed.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
# shellcheck source=tests/support/wine_programs.sh
source "$root/tests/support/wine_programs.sh"

readonly packages=$1 keys=$2
folder=$(mktemp -d)
cd "$folder"
cp "$packages"/*-windows-x86_64.zip .
zip=$(echo ./*.zip)
zip=${zip#./}
name=${zip%.zip}
readonly zip name newer=fiscalon-99.0.0-windows-x86_64
"$root/tools/lib/make_msi.py" --keys "$keys" "$zip" >made
"$root/tools/lib/make_msi.py" --keys "$keys" --version 99.0.0 "$zip" >>made
allRemoved=
End() {
  local package
  for package in "$name" "$newer" "$name-user" "${name%_64}"; do
    [[ -n "$allRemoved" ]] || Wine msiexec /x "$package.msi" /qn || true
  done
  rm -rf "$folder"
}
trap End EXIT

# Classes FILE [ROOT]: the classes' part of the registry, without what the installer remembers of its products.
Classes() {
  Wine reg export "${2:-HKLM}\\Software\\Classes" classes.reg /y >printed 2>&1 || : >classes.reg
  iconv -f UTF-16 -t UTF-8 classes.reg | tr -d '\r' |
    awk '/^\[/ { kept = !/\\Software\\Classes\\Installer/ } kept' >"$1"
}

# World FILE: all that an installation may change: the registry of machine and user, and the names of all files. Keys of
# the system's own that hold nothing are left out, for the installer makes some at its first use.
World() {
  Expect 0 reg export 'HKLM\Software' machine.reg /y
  Expect 0 reg export 'HKCU\Software' user.reg /y
  {
    cat machine.reg user.reg | iconv -f UTF-16 -t UTF-8 | tr -d '\r' |
      awk '/^\[/ { key = $0; if (!/\\Software\\Classes\\/) next } /^$/ { next } key { print key; key = "" } !/^\[/'
    find "$WINEPREFIX/drive_c" -path '*/[Tt]emp/*' -prune -o \( -type f -o -name 'Fiscalon*' \) -print | sort
  } >"$1"
}

# ExpectVersions VERSION...: those alone are there, for the user or the machine.
ExpectVersions() {
  local each
  for each in HKLM HKCU; do
    Wine reg query "$each\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall" /s || true
  done 2>/dev/null | tr -d '\r' |
    awk '$1 == "DisplayName" { name = $3 } $1 == "DisplayVersion" && name == "Fiscalon" { print $3 }' >out
  printf '%s\n' "$@" >wanted
  diff wanted out
}

# UseComponent: the installed example meets it by its name.
UseComponent() {
  local examples='C:\Program Files\Fiscalon\examples'
  Expect 1 cscript //nologo "$examples\\payment.vbs" "$examples\\batch.csv" "$examples\\batch.pc4"
  grep -qx '0001: valid' out || { cat out && exit 1; }
}

WineSettings
# The installer compares versions of files, and tells who may not install for all users why. (Wine asks nobody.)
version=${name#fiscalon-}
version=${version%%-*}.0
msiinfo export "$name.msi" File | cut -f 3,5 >files
for file in fiscalon.dll fiscalon-c.dll fiscalon.exe; do
  grep -qx "$file"$'\t'"$version" files || { cat files && exit 1; }
done
msiinfo export "$name.msi" LaunchCondition >conditions
grep -q $'^Privileged\tOnly an administrator' conditions
msiinfo export "$name-user.msi" LaunchCondition >conditions
grep -q Privileged conditions && exit 1

# At its first use Wine's script host registers a library of its own.
echo 'WScript.Quit 0' >first.vbs
Expect 0 cscript //nologo first.vbs

# Both word sizes have the names in common: they stay until the last one goes. (Wine keeps them for each in a place of
# its own, so the first one comes back to take them along; and what 32-bit programs share looks different afterwards.)
mkdir unpacked
(cd unpacked && python3 -m zipfile -e "../$zip" .)
other=${name%_64}
mkdir "$other"
cp -r "unpacked/$name/." "$other"
python3 -m zipfile -c "$other.zip" "$other"
"$root/tools/lib/make_msi.py" --keys "$keys" "$other.zip" >made
Expect 0 msiexec /i "$name.msi" /qn
Expect 0 msiexec /i "$other.msi" /qn
Expect 0 msiexec /x "$name.msi" /qn
Expect 0 reg query 'HKLM\Software\Classes\Fiscalon.Levyra\CurVer'
Expect 1 reg query 'HKLM\Software\Classes\CLSID\{59DF283E-D04B-4201-9D14-40F0A37E9651}'
Expect 0 msiexec /x "$other.msi" /qn
Expect 0 msiexec /i "$name.msi" /qn
Expect 0 msiexec /x "$name.msi" /qn

# For all users.
World before
Classes classes_before
Expect 0 msiexec /i "$name.msi" /qn
installed="$WINEPREFIX/drive_c/Program Files/Fiscalon"
diff -r "unpacked/$name" "$installed"
UseComponent
Classes classes_installed
diff classes_before classes_installed >registered && { echo "nothing is registered" && exit 1; }
# What the component writes itself stands there already, and nothing beside it.
Expect 0 regsvr32 /s 'C:\Program Files\Fiscalon\fiscalon.dll'
Classes classes_now
diff classes_installed classes_now
Expect 0 regsvr32 /s /u 'C:\Program Files\Fiscalon\fiscalon.dll'
Classes classes_now
diff classes_before classes_now
Expect 0 regsvr32 /s 'C:\Program Files\Fiscalon\fiscalon.dll'

# A newer version takes its place. An older one is refused: 1603, of which a status here is the rest by 256.
Expect 0 msiexec /i "$newer.msi" /qn
ExpectVersions 99.0.0
UseComponent
Expect $((1603 % 256)) msiexec /i "$name.msi" /qn
ExpectVersions 99.0.0
UseComponent
Expect 0 msiexec /x "$newer.msi" /qn
World after
cmp before after

# While a host holds the library it works on, and the new one comes with the next start of the machine: 3010.
cat >hold.js <<'END'
var payment = new ActiveXObject("Fiscalon.Levyra");
var files = new ActiveXObject("Scripting.FileSystemObject");
payment.CompName = "held";
files.CreateTextFile("holds").Close();
while (!files.FileExists("enough"));
WScript.Echo(payment.CompName);
END
Expect 0 msiexec /i "$name.msi" /qn
(Wine cscript //nologo hold.js >held 2>&1) &
for ((tries = 0; tries < 200; ++tries)); do
  [[ ! -e holds ]] || break
  sleep 0.1
done
[[ -e holds ]]
Expect $((3010 % 256)) msiexec /i "$newer.msi" /qn
touch enough
wait
[[ "$(tr -d '\r' <held)" == held ]]
Expect 0 wineboot
ExpectVersions 99.0.0
UseComponent
Expect 0 msiexec /x "$newer.msi" /qn
World after
cmp before after

# For one user: nothing of the machine's classes changes.
Expect 0 msiexec /i "$name-user.msi" /qn
Classes classes_now
diff classes_before classes_now
diff -r "unpacked/$name" "$WINEPREFIX"/drive_c/users/*/AppData/Local/Programs/Fiscalon
Classes user_installed HKCU
grep -q 'Fiscalon.Levyra.1' user_installed
library='%LOCALAPPDATA%\Programs\Fiscalon\fiscalon.dll'
Expect 0 cmd /c "regsvr32 /s /n /i:user $library"
Classes user_now HKCU
diff user_installed user_now
Expect 0 cmd /c "regsvr32 /s /u /n /i:user $library"
Classes user_now HKCU
[[ "$(cat user_now)" == '' ]]
Expect 0 msiexec /x "$name-user.msi" /qn
World after
cmp before after
allRemoved=1
