#!/usr/bin/env bash
# Builds Vellumbridge and runs it with Notepad on your display, in a Wine prefix of its own.
# Without a display, or with --demo, it plays the main job on a private one and leaves pictures.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/scripts/common.sh"

demo=no
case ${1:-} in
'') ;;
--demo) demo=yes ;;
*) usage "$0" && exit 2 ;;
esac

"$root/scripts/install-packages.sh"

if [[ $demo == no ]] && ! xdotool getdisplaygeometry >/dev/null 2>&1; then
    echo "== No display here: playing the demo on a private one"
    demo=yes
fi

if [[ $demo == yes ]]; then
    build windows program vellumbridge_demo
    assemble_program
    exec "$root/scripts/wine-desktop.sh" run --timeout 180 -- \
        "$root/scripts/with-program.sh" "$root/scripts/demo.sh"
fi

build windows program
assemble_program
echo "== Running Vellumbridge with Notepad"
echo "Press Ctrl+Alt+Enter in Notepad for the menu; the tray icon's menu ends Vellumbridge."
exec "$root/scripts/wine-desktop.sh" on-display "$root" -- \
    bash -c 'wine notepad & wine "$1"' run "$program_folder/Vellumbridge.exe"
