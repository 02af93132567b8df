# shellcheck shell=bash
# Debian packages by purpose, and their installation. Sourced by run, test and tools/check.
# docs/dependencies.md says more about each package.

# purpose | package | what it is needed for
readonly kPackages='
build | g++                | compiles the library and its program
build | cmake              | describes and drives the build
build | ninja-build        | runs the build
tools | libcli11-dev       | reads the command line of the program
build | libncurses-dev     | forms in a terminal: what each kind of terminal understands
tools | libvterm-dev       | plays scenarios on the screen of a terminal
tools | nlohmann-json3-dev | writes JSON output
desk  | qt6-base-dev       | the Qt 6 front end and the payment desk
tests | libgtest-dev       | the test framework
tests | libgmock-dev       | matchers of the test framework
tests | locales            | tests compile the user locales that they read
tests | pkgconf            | a test compiles against the installed package through pkg-config
tests | clang-format       | checks the formatting
tests | python3            | runs the layering check and the model of the screens
tests | valgrind           | looks whether a host in C leaks anything
tests | mono-mcs           | compiles hosts in C#
tests | mono-runtime       | runs them
tests | python3-jsonschema | holds what the program reads and answers against its schemas
tests | python3-distributed | a cluster judges a batch in parts
tests | parallel           | so does GNU parallel
tests | git                | lists the files that a release is made of
tests | xvfb               | a display for the tests with a real user
tests | xdotool            | types and clicks in those tests
tests | openbox            | sizes windows by the steps that they ask for
tests | at-spi2-core       | the bus of assistive programs
tests | dbus               | a session with that bus
tests | python3-gi         | an assistive program in those tests
tests | gir1.2-atspi-2.0   | what it speaks by
tests | zsh                | a shell whose completion is tested
tests | fish               | another one
tests | python3-pytest     | the tests of hosts in Python
tests | mypy               | checks their types, and those of the package
tests | python3-setuptools | makes the wheel for them
tests | python3-wheel      | so does it
tests | python3-pip        | installs it in a test
windows | g++-mingw-w64-x86-64-posix | compiles for 64-bit Windows
windows | g++-mingw-w64-i686-posix   | compiles for 32-bit Windows
windows | mingw-w64-tools | compiles the interfaces of the component
windows | libwine-dev | the declarations that those interfaces rest on
windows | googletest | the test framework, to be compiled for Windows
windows | wine | runs what was compiled for Windows
windows | wine64 | the 64-bit kind of it
windows | wixl | makes installer packages for Windows
windows | msitools | looks into them
windows | osslsigncode | signs what is packed for Windows, in a test
windows | openssl | makes the certificate of that test
check | clang-tidy         | lint
check | cppcheck           | lint
check | shellcheck         | lint of the shell scripts
check | clang              | the other compiler, which runs the whole suite too
check | dpkg-dev           | finds what the packages depend on
check | file               | tells programs from other files when packages are made
check | lintian            | checks the Debian packages
check | reuse              | checks that each file has a licence
check | doxygen            | writes the API pages
check | linkchecker        | follows the links of pages and guides
check | abigail-tools      | compares the interface of the library with the one that is kept
long  | debootstrap        | a bare system to install the packages on
bench | libbenchmark-dev   | the benchmarks
bench | sshfs              | a folder of a server, for what that costs a cluster
bench | openssh-sftp-server | the server
fuzz  | clang              | compiles the fuzz targets
fuzz  | libclang-rt-dev    | the fuzzing engine and the sanitizers of clang
'

# RunsWine: whether this machine can run what is built for 64-bit Windows.
RunsWine() {
  if command -v dpkg >/dev/null 2>&1; then
    [[ "$(dpkg --print-architecture)" == amd64 ]]
  else
    command -v wine >/dev/null 2>&1 && command -v x86_64-w64-mingw32-g++-posix >/dev/null 2>&1
  fi
}

# IsInstalled PACKAGE
IsInstalled() {
  [[ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" == installed ]]
}

# Installs with root's rights: as root, else through sudo. Asks for a password only where there is a
# terminal to type it on.
AsRoot() {
  if [[ "$(id -u)" == 0 ]]; then
    "$@"
  elif [[ -t 0 && -t 2 ]]; then
    sudo "$@"
  else
    sudo -n "$@"
  fi
}

# AptGet ARGUMENT...
AptGet() {
  AsRoot env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=120 "$@" </dev/null
}

# SetUp PURPOSE...: sees to it that every package of these purposes is installed. Says what is missing
# and why before it installs anything, and touches neither the network nor the system when nothing is
# missing. Everything it prints goes to standard error.
SetUp() {
  if ! command -v dpkg-query >/dev/null 2>&1; then
    echo "setup: this is no Debian system; the programs of docs/dependencies.md are taken to be installed" >&2
    return 0
  fi

  local wanted=" $* " missing=() purpose package reason
  while IFS='|' read -r purpose package reason; do
    purpose=${purpose// /} package=${package// /}
    [[ -n "$package" && "$wanted" == *" $purpose "* ]] || continue
    if ! IsInstalled "$package"; then
      ((${#missing[@]})) || echo "setup: missing packages:" >&2
      missing+=("$package")
      printf '  %-20s%s\n' "$package" "${reason# }" >&2
    fi
  done <<<"$kPackages"
  ((${#missing[@]})) || return 0

  local command="apt-get update && apt-get install --no-install-recommends ${missing[*]}"
  if [[ "$(id -u)" != 0 ]] && ! command -v sudo >/dev/null 2>&1; then
    printf 'setup: cannot install them without root or sudo. Run this as root, then start again:\n  %s\n' "$command" >&2
    return 1
  fi

  echo "setup: installing them" >&2
  if ! { AptGet update && AptGet install -y --no-install-recommends "${missing[@]}"; } >&2; then
    printf 'setup: the installation failed, see above. Run this as root, then start again:\n  %s\n' \
      "$command" >&2
    return 1
  fi
}
