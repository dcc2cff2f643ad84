# What the commands share. To be sourced; the working folder is then the
# project's.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

LIBRARY_PACKAGES=(g++ cmake ninja-build
  libprotobuf-dev libprotoc-dev protobuf-compiler)
BUILD_PACKAGES=("${LIBRARY_PACKAGES[@]}" pkg-config binutils libgtest-dev
  libcli11-dev nlohmann-json3-dev)
# Another compiler for the clients in the tests, what emitted code has to be
# formatted like: the tests ask for Debian 12's version 14, what the pages show
# beside the project's own programs, and a validator of JSON.
TEST_PACKAGES=(clang clang-format jq python3-jsonschema)
ARM64_PACKAGES=(g++-aarch64-linux-gnu qemu-user
  libprotobuf-dev:arm64 libgtest-dev:arm64)
FUZZ_PACKAGES=(clang libclang-rt-14-dev)
LINT_PACKAGES=(clang-format clang-tidy)
BENCH_PACKAGES=(valgrind)
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}

say() { printf '\033[1m== %s\033[0m\n' "$*" >&2; }
die() { printf 'run: %s\n' "$*" >&2; exit 2; }
wrong_use() { die "$* (./run --help lists what can be given)"; }

# bench and mutants have help of their own.
if [[ ${1:-} =~ ^(-h|--help)$ && ! ${0##*/} =~ ^(bench|mutants)$ ]]; then
  exec ./run --help
fi

# For commands that can be told nothing.
no_options() {
  (($# == 0)) || wrong_use "${0##*/} has no options: $*"
}

as_root() {
  if ((EUID == 0)); then
    "$@"
  else
    command -v sudo >/dev/null || die "this has to be done as root: $*"
    sudo "$@"
  fi
}

# Installs the packages that are missing.
need() { # need PACKAGE...
  local missing=() package native architecture
  native=$(dpkg --print-architecture)
  for package in "$@"; do
    architecture=$native
    [[ $package != *:* ]] || architecture=${package#*:}
    dpkg-query -W -f '${Architecture} ${db:Status-Status}\n' "$package" \
      2>/dev/null | grep -qxE "(all|$architecture) installed" ||
      missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  say "installing ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
    --no-install-recommends "${missing[@]}" >/dev/null
}

need_arm64() {
  if ! dpkg --print-foreign-architectures | grep -qx arm64; then
    say "adding Debian's arm64 packages"
    as_root dpkg --add-architecture arm64
  fi
  need "${ARM64_PACKAGES[@]}"
}

# Installs a package of npm in a folder, unless it is there.
need_npm() { # need_npm FOLDER PACKAGE VERSION
  grep -q "\"version\": \"$3\"" "$1/node_modules/$2/package.json" 2>/dev/null &&
    return
  command -v npm >/dev/null || need nodejs npm
  say "installing $2 $3"
  npm install --prefix "$1" --ignore-scripts --no-audit --no-fund \
    --loglevel error "$2@$3" >/dev/null
}

configure() { # configure PRESET [CMAKE ARGUMENTS]
  local log generator=Ninja
  # build/ may have been configured without a preset.
  if [ "$1" = default ] && [ -f build/Makefile ]; then
    generator="Unix Makefiles"
  fi
  log=$(cmake -G "$generator" --preset "$@" 2>&1) || die "cmake failed:
$log"
}

build() { # build PRESET [BUILD ARGUMENTS]
  local preset=$1
  shift
  need "${BUILD_PACKAGES[@]}"
  say "building ($preset)"
  configure "$preset"
  cmake --build --preset "$preset" "$@"
}

run_tests() { # run_tests PRESET [CTEST ARGUMENTS]
  local preset=$1
  shift
  need "${TEST_PACKAGES[@]}"
  build "$preset"
  say "testing ($preset)"
  ctest --preset "$preset" "$@"
}

# The C++ files of the project, one a line.
sources() {
  git ls-files -co --exclude-standard '*.cc' '*.h' 2>/dev/null ||
    find compiler lib tools examples tests bench -name '*.cc' -o -name '*.h'
}
