#!/usr/bin/env bash
# Installs the Debian packages that the build, the program and the tests need, when some are missing.
#   install-packages.sh [--fuzz | --second-wine]   (with what fuzz targets or a second Wine need)
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

packages=(
    # compilers and tools of the build
    ca-certificates clang-format cmake dpkg-dev g++ g++-mingw-w64-x86-64-posix ninja-build
    # libraries, native and for Windows
    googletest libbenchmark-dev libgmock-dev libgtest-dev libminizip-dev libtinyxml-dev
    libutfcpp-dev libz-mingw-w64-dev zlib1g-dev
    "${desktop_packages[@]}"
)
case ${1:-} in
--fuzz) packages+=(clang libclang-rt-14-dev) ;;
--second-wine) packages+=(mmdebstrap) ;;
esac

missing=()
for package in "${packages[@]}"; do
    state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
    [[ $state == installed ]] || missing+=("$package")
done
if ((${#missing[@]} == 0)); then
    exit 0
fi

as_root=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing, and installing them needs root: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

# Debconf must not wait for an answer, and another apt at work is waited for.
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)

echo "== Installing packages: ${missing[*]}"
"${apt[@]}" update >/dev/null
"${apt[@]}" install -y --no-install-recommends "${missing[@]}" </dev/null >/dev/null
echo "== Packages installed"
