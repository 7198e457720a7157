#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs, with apt-get, whichever of the build's Debian packages are missing.
#   scripts/install-deps.sh         what the build and the tests need
#   scripts/install-deps.sh fuzz    that and what the fuzzing build needs
#   scripts/install-deps.sh bench   that and what the benchmark suite needs
#   scripts/install-deps.sh i386    that and what the 32-bit x86 build needs
#   scripts/install-deps.sh abi     that and what the interface check needs
#   scripts/install-deps.sh compilers  that and the second compiler of CI
#   scripts/install-deps.sh deb     that and what `make deb` needs
#   scripts/install-deps.sh format  that and clang-format 14, for `make format`
#   scripts/install-deps.sh tidy    that and clang-tidy 14, for `make tidy`
# Quiet and quick when everything is present; the package lists are only
# refreshed when something has to be installed.
set -euo pipefail

# locales: the sources from which a test makes a GBK locale with localedef.
packages=(cmake ninja-build g++ make pkg-config python3 help2man libboost-dev libgtest-dev libcli11-dev nlohmann-json3-dev libelf-dev locales)
case "${1:-}" in
    # clang, with its fuzzer and sanitizer runtimes (libclang_rt.fuzzer and the others).
    fuzz) packages+=(clang libclang-rt-dev) ;;
    bench) packages+=(libbenchmark-dev) ;;
    # The 32-bit C and C++ libraries for g++ -m32, and GoogleTest's sources
    # (/usr/src/googletest), built for i386 by `make test-i386`.
    i386) packages+=(g++-multilib googletest) ;;
    abi) packages+=(abigail-tools) ;;
    # clang's sanitizer runtimes come with libclang-rt-14-dev, which clang
    # only recommends.
    compilers) packages+=(g++-12 clang-14 libclang-rt-14-dev) ;;
    # dpkg-shlibdeps, which gives the packages their dependencies.
    deb) packages+=(dpkg-dev) ;;
    # A version of its own, whichever is the default: another version lays
    # out or checks the same code otherwise.
    format) packages+=(clang-format-14) ;;
    tidy) packages+=(clang-tidy-14) ;;
    "") ;;
    *) echo "install-deps: unknown set '$1' (fuzz, bench, i386, abi, compilers, deb, format or tidy)" >&2; exit 2 ;;
esac

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -eq 0 ]; then
    as_root=()
elif command -v sudo >/dev/null 2>&1; then
    as_root=(sudo)
else
    echo "install-deps: these packages are missing: ${missing[*]}" >&2
    echo "install-deps: as root, run:  apt-get install -y ${missing[*]}" >&2
    exit 1
fi

echo "install-deps: installing ${missing[*]}" >&2
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
