#!/usr/bin/env bash
# Builds Vellumbridge; the program for Windows is left in out/Vellumbridge.
#   ./build.sh              the program
#   ./build.sh --native     the portable code and its tests, for this machine
#   ./build.sh --all        both, and every test program for Windows
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/scripts/common.sh"

what=${1:---windows}
case $what in
--windows | --native | --all) ;;
*) usage "$0" && exit 2 ;;
esac

"$root/scripts/install-packages.sh"
case $what in
--native | --all) build native ;;
esac
case $what in
--windows) build windows program ;;
--all) build windows ;;
esac
if [[ $what != --native ]]; then
    assemble_program
fi
