#!/usr/bin/env bash
# What is packed with FISCALON_SIGN is signed, by a certificate of the test's own, and good:
# signing_test.sh BUILD_FOLDER KEYS_PROGRAM
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
readonly build=$1 keys=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj '/CN=Test publisher' -addext extendedKeyUsage=codeSigning \
  -keyout key.pem -out certificate.pem 2>made
cat >sign.sh <<END
#!/usr/bin/env bash
set -euo pipefail
echo "\${!#}" >>'$folder/signed'
osslsigncode sign -certs '$folder/certificate.pem' -key '$folder/key.pem' "\$1" "\$2" -out "\$2.part" >/dev/null
mv "\$2.part" "\$2"
END
chmod +x sign.sh
export FISCALON_SIGN="$folder/sign.sh -in"
cpack --config "$build/CPackConfig.cmake" -G ZIP -B "$folder" >packed
"$root/tools/lib/make_msi.py" --keys "$keys" ./*.zip >made

# IsSigned FILE: and by whom, and not changed since.
IsSigned() {
  osslsigncode verify -CAfile certificate.pem -in "$1" >verified 2>&1 && grep -q 'CN *= *Test publisher' verified
}
python3 -m zipfile -e ./*.zip .
binaries=(fiscalon-*/*.dll fiscalon-*/*.exe ./*.msi)
diff <(printf '%s\n' "${binaries[@]##*/}" | sort) <(sed 's|.*/||' signed | sort)
for file in "${binaries[@]}"; do
  IsSigned "$file" || { echo "$file is not signed" && cat verified && exit 1; }
done
"$root/tools/lib/check_windows_packages.py" ./*.zip ./*.msi

# One bit that is changed is noticed.
python3 - fiscalon-*/fiscalon.dll <<'END'
import sys
with open(sys.argv[1], "r+b") as file:
    file.seek(0x4000)
    byte = file.read(1)[0]
    file.seek(0x4000)
    file.write(bytes([byte ^ 1]))
END
if IsSigned fiscalon-*/fiscalon.dll; then
  echo "a changed file passes" && exit 1
fi

# Nothing is packed that could not be signed.
mkdir refused
cp ./*.zip refused
if FISCALON_SIGN=false "$root/tools/lib/make_msi.py" --keys "$keys" refused/*.zip 2>reason; then
  echo "a package that could not be signed was made" && exit 1
fi
grep -q 'false failed' reason
[[ "$(find refused -name '*.msi')" == '' ]]
if FISCALON_SIGN=false cpack --config "$build/CPackConfig.cmake" -G ZIP -B "$folder/refused_zip" >out 2>&1; then
  echo "a ZIP with files that could not be signed was made" && exit 1
fi
[[ "$(find refused_zip -maxdepth 1 -name '*.zip')" == '' ]]
