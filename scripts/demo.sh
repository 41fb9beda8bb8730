#!/usr/bin/env bash
# Within a run of wine-desktop.sh and with-program.sh: plays the main job and takes its pictures.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
desktop=$root/scripts/wine-desktop.sh
demo() { wine "$root/build/windows/bin/vellumbridge_demo.exe" "$1" | tr -d '\r'; }

done=no
ended() {
    if [[ $done == no ]]; then
        "$desktop" screenshot "$root/out/demo-failed.png"
        echo "The demo failed; out/demo-failed.png shows where." >&2
    fi
}
trap ended EXIT
rm -f "$root"/out/demo*.png

# The welcome program would stand in front.
printf '[Settings]\r\nWelcome_Already_Started_V2_60=1\r\n' >"$WINEPREFIX/drive_c/Vellumbridge/Settings.ini"
echo "== Starting Notepad and Vellumbridge"
wine notepad &
wine "$VELLUMBRIDGE_FOLDER\\Vellumbridge.exe" &

echo "== Pressing Ctrl+Alt+Enter in Notepad"
demo open-menu
"$desktop" screenshot "$root/out/demo-menu.png"

echo "== Choosing a phrase from the menu"
text=$(demo choose)
"$desktop" screenshot "$root/out/demo.png"

echo "== Ending the program"
demo close
done=yes

echo
echo "This is what arrived in Notepad:"
echo "$text"
echo
echo "Pictures: out/demo-menu.png (the menu), out/demo.png (the text in Notepad)"
