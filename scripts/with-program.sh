#!/usr/bin/env bash
# Within a run of wine-desktop.sh: puts a copy of the program folder on drive C and runs a command.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# The copy goes with the prefix; the folder in out/ stays as it was built.
cp -r "$root/out/Vellumbridge" "$WINEPREFIX/drive_c/Vellumbridge"
export VELLUMBRIDGE_FOLDER='C:\Vellumbridge'
exec "$@"
