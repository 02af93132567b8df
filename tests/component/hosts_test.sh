#!/usr/bin/env bash
# The component as hosts meet it: registered and not, from a script and from C++, with a user at the form.
#   hosts_test.sh COMPONENT_FOLDER HOST FILL_FORM
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tests/support/wine_programs.sh
source "$root/tests/support/wine_programs.sh"

readonly component=$1 host=$2 fillForm=$3
folder=$(mktemp -d)
cd "$folder"
cp "$component/fiscalon.dll" "$component/fiscalon.manifest" .
cp "$root"/examples/windows/{payment.vbs,payment.js,payment.exe.manifest,batch.csv,batch.pc4} .
cp "$root"/tests/component/{every_member.vbs,collections.js} .
cp "$host" payment.exe
cp "$fillForm" fill_form.exe
End() {
  Wine regsvr32 /s /u fiscalon.dll || true
  rm -rf "$folder"
}
trap End EXIT

# ExpectLines LINE...: all that was printed.
ExpectLines() {
  printf '%s\n' "$@" >wanted
  diff wanted out
}

# Classes FILE: the classes' part of the registry, of the machine and of the user.
Classes() {
  Expect 0 reg export 'HKLM\Software\Classes' machine.reg /y
  # A user who has none has none of the keys either.
  Wine reg export 'HKCU\Software\Classes' user.reg /y >printed 2>&1 || : >user.reg
  cat machine.reg user.reg >"$1"
}

# What screen "15" makes of the payment, typed in the order of its fields.
blanks() { printf "%$1s" ''; }
zeros=$(printf '%018d' 0)
period="PC40001T$(blanks 16)202412$(blanks 10)"
amounts="PC40001F01$(printf '%018d' 12345)02${zeros}03${zeros}04${zeros}$(blanks 72)"
typed=20241212345
readonly zeros period amounts typed
unknown='Error -2147221503 from Fiscalon.ShowLevyraScreen: Invalid Screen Type'
batch=(
  '0001: valid'
  "0002: invalid: Field 01 Amount of Payment is not equal to amount to be paid, Field 03 Gross Payroll in Remitting \
Period cannot have decimal value or invalid"
  '0003: invalid: Invalid or not supported Screen Type')
readonly batch

# UseHost NAME COMMAND...: all that the two example hosts do alike. The name is that of who enters, in the code page.
UseHost() {
  local name
  name=$(printf "$1%s" "$(blanks 30)" | LC_ALL=C cut -c -30)
  shift
  rm -f records.pc4
  Expect 0 fill_form.exe "$typed" '&OK' "$@" 15 records.pc4
  ExpectLines 'Written to records.pc4'
  printf '"%s%sClerk%s"\r\n"%s"\r\n' "$period" "$name" "$(blanks 85)" "$amounts" >wanted
  cmp wanted records.pc4
  Expect 1 fill_form.exe "$typed" Cancel "$@" 15
  ExpectLines 'Cancelled.'
  Expect 2 "$@" 12
  ExpectLines "$unknown"
  Expect 1 "$@" batch.csv batch.pc4
  ExpectLines "${batch[@]}"
}

# Installers look for the first of these names in the library's resources, users for the others.
tr -d '\0' <fiscalon.dll >narrow
for word in OLESelfRegister CompanyName LegalCopyright; do
  grep -qaF "$word" narrow || { echo "no $word in the library" && exit 1; }
done

# At its first use Wine's script host registers a library of its own.
echo 'WScript.Quit 0' >first.vbs
Expect 0 cscript //nologo first.vbs
Classes before
Expect 0 regsvr32 /s fiscalon.dll
UseHost 'Ann Walker' cscript //nologo payment.vbs
# There is no such drive.
Expect 2 fill_form.exe "$typed" '&OK' cscript //nologo payment.vbs 15 'Q:\records.pc4'
ExpectLines 'Error 76 from Fiscalon.ShowLevyraScreen: Path not found'
# JScript does not tell where an error comes from.
unknown='Error -2147221503: Invalid Screen Type' UseHost 'Ann Walker' cscript //nologo payment.js
Expect 2 fill_form.exe "$typed" '&OK' cscript //nologo payment.js 15 'Q:\records.pc4'
ExpectLines 'Error 76: Path not found'
Expect 0 fill_form.exe "$typed" '&OK' cscript //nologo payment.js 15
ExpectLines "${period}Ann Walker$(blanks 20)Clerk$(blanks 85)" "$amounts"
Expect 0 cscript //nologo every_member.vbs "$(winepath -w .)"
ExpectLines '202 looked at, 0 wrong'
echo 'WScript.Echo TypeName(CreateObject("Fiscalon.Levyra")) & TypeName(CreateObject("Fiscalon.Levyra.1"))' >names.vbs
Expect 0 cscript //nologo names.vbs
ExpectLines '_Levyra_Levyra'
Expect 0 cscript //nologo collections.js
ExpectLines '27 looked at, 0 wrong'
Expect 0 regsvr32 /s /u fiscalon.dll
Classes after
cmp before after

# By the manifests beside it, the other host needs no registration.
UseHost 'H\xe9l\xe8ne C\xf4t\xe9' payment.exe
Expect 0 fill_form.exe "$typed" '&OK' payment.exe 15
ExpectLines "${period}Hélène Côté$(blanks 19)Clerk$(blanks 85)" "$amounts"
rm payment.exe.manifest
Expect 2 payment.exe 12

# For one user: nothing of the machine's changes.
Expect 0 regsvr32 /s /n /i:user fiscalon.dll
Expect 0 reg export 'HKLM\Software\Classes' machine.reg /y
cmp <(head -c "$(stat -c %s machine.reg)" before) machine.reg
Expect 0 reg query 'HKCU\Software\Classes\Fiscalon.Levyra\CLSID'
Expect 0 regsvr32 /s /u /n /i:user fiscalon.dll
Classes after
cmp before after
# What is not registered is taken away without a word.
Expect 0 regsvr32 /s /u fiscalon.dll
Classes after
cmp before after
