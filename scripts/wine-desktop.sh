#!/usr/bin/env bash
# Runs a command on a private Windows desktop: its own X server, Wine server and prefix.
#   wine-desktop.sh run [--no-display] [--timeout SECONDS] -- COMMAND...
#   wine-desktop.sh on-display NAME -- COMMAND...   (on your display, in a lasting prefix per NAME)
#   wine-desktop.sh screenshot FILE.png   (within a run; bash there knows it as `screenshot` too)
#   wine-desktop.sh template              (makes what runs are copied from and prints its folder)
set -euo pipefail

self=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/wine-desktop.sh
size=1024x768
export HOME=${HOME:-~}
cache=${XDG_CACHE_HOME:-$HOME/.cache}/vellumbridge

settings() {
    cat <<REG
Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]
"Desktop"="vellumbridge"

[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]
"vellumbridge"="$size"

[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]
"Lucida Console"="DejaVu Sans Mono"
"Consolas"="DejaVu Sans Mono"
"Segoe UI"="Tahoma"

[HKEY_CURRENT_USER\\Software\\Microsoft\\Notepad]
"lfFaceName"="DejaVu Sans Mono"
"iPointSize"=dword:00000064

[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\\Control Panel\\Desktop]
"FontSmoothing"="2"
"FontSmoothingType"=dword:00000001
REG
}

# Ends the prefix's server and all its programs, or waits for the programs to end by themselves.
end_wine() {
    local name=
    [[ ! -r $WINEPREFIX/wineserver ]] || name=$(<"$WINEPREFIX/wineserver")
    [[ ${1:-} == wait ]] || wineserver -k >/dev/null 2>&1 || true
    timeout 60 wineserver -w || true
    # Debian's server leaves its socket's folder, and copies that kept the name would share it.
    if [[ $name == wine-* ]]; then
        rm -rf "${WINEPREFIX:?}/wineserver" "/tmp/$name"
    fi
}

# A new prefix with our settings in it.
make_prefix() {
    export WINEPREFIX=$1
    # This Wine does not look where its own fonts lie; without them a window has no buttons.
    mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
    cp /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts"
    LC_ALL=C.UTF-8 DISPLAY='' wine wineboot --init >/dev/null 2>&1
    settings >"$WINEPREFIX/settings.reg"
    wine regedit /S "$WINEPREFIX/settings.reg"
    rm "$WINEPREFIX/settings.reg"
    end_wine wait
    # Wine links Documents and the like to the caller's own folders.
    find "$WINEPREFIX/drive_c/users" -type l -exec rm {} \; -exec mkdir {} \;
}

# Sets `template` to the folder of the template, made when this Wine and these settings have none.
need_template() {
    local recipe
    # A prefix gets 32-bit programs only when Wine has them while it is made.
    recipe=$({
        wine --version && settings && declare -f make_prefix &&
            { find /usr/lib/*/wine/i386-windows -name ntdll.dll 2>/dev/null || true; }
    } | sha256sum)
    template=$cache/wine-${recipe:0:12}
    mkdir -p "$cache/runs"
    (
        flock 8
        if [[ ! -d $template ]]; then
            echo "== Making a Wine prefix to copy from" >&2
            # Templates of an older Wine or older settings are large.
            find "$cache" -maxdepth 1 -name 'wine-*' -mtime +7 -exec rm -rf {} +
            rm -rf "$template.new"
            (make_prefix "$template.new") 8>&-
            mv "$template.new" "$template"
        fi
        touch "$template"
    ) 8>"$cache/template.lock"
}

# Programs are shared with the template by hard links; what is written to in place is copied.
copy_template() {
    local prefix=$1 file
    mkdir -p "$prefix/drive_c"
    find "$template" -mindepth 1 -maxdepth 1 ! -name drive_c -exec cp -a -t "$prefix" {} +
    find "$template/drive_c" -mindepth 1 -maxdepth 1 ! -name windows \
        -exec cp -a -t "$prefix/drive_c" {} +
    cp -al "$template/drive_c/windows" "$prefix/drive_c"
    for file in "$template"/drive_c/windows/*.ini; do
        cp -a --remove-destination "$file" "$prefix/drive_c/windows"
    done
}

# A run that was killed outright could not tidy up; its lock is free.
remove_stale_runs() {
    local stale
    for stale in "$cache"/runs/*; do
        [[ -e $stale/lock ]] || continue
        (
            flock -n 7 || exit 0
            WINEPREFIX=$stale/prefix end_wine
            rm -rf "$stale"
        ) 7<"$stale/lock" || true
    done
}

# Whenever the pointer enters a window, or one gets the focus, the X server tells which keys are
# down, and Wine takes up the modifiers that the server's keyboard has. Those of SendInput the server
# knows nothing of: they would be let go in the middle of a hot key. So its keyboard has none.
drop_modifier_keys() {
    xkbcomp -w0 "$DISPLAY" - |
        sed -E '/^xkb_symbols/,/^};/ s/\b(Control|Shift|Alt|Meta|Super|Hyper)_[LR]\b/VoidSymbol/g' \
            >"$work/keyboard.xkb"
    xkbcomp -w0 -I "$work/keyboard.xkb" "$DISPLAY"
}

start_display() {
    local number
    # The server may come up later than the first look at this.
    : >"$work/display"
    # The X server dies with this script, however that ends.
    setpriv --pdeathsig KILL Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp -noreset \
        3>>"$work/display" >"$work/xvfb.log" 2>&1 7>&- &
    display_pid=$!
    for ((i = 0; i < 300; i++)); do
        number=$(cat "$work/display")
        if [[ $number ]]; then
            export DISPLAY=:$number
            drop_modifier_keys
            return
        fi
        kill -0 "$display_pid" 2>/dev/null || break
        sleep 0.1
    done
    echo "No X server came up:" >&2
    cat "$work/xvfb.log" >&2
    exit 1
}

# Ends all that this run started; runs on every way out.
finish() {
    trap - EXIT
    trap '' HUP INT TERM
    if [[ $command_pid ]]; then
        kill -TERM -- "-$command_pid" 2>/dev/null || true
    fi
    if [[ -d $work/prefix ]]; then
        end_wine
    fi
    if [[ $display_pid ]]; then
        kill "$display_pid" 2>/dev/null || true
        wait "$display_pid" 2>/dev/null || true
    fi
    rm -rf "$work"
}

run() {
    local display=yes seconds=0
    while (($# > 0)); do
        case $1 in
        --no-display) display=no ;;
        --timeout) seconds=$2 && shift ;;
        --) shift && break ;;
        *) echo "wine-desktop.sh: unknown option $1" >&2 && exit 2 ;;
        esac
        shift
    done
    if (($# == 0)); then
        echo "wine-desktop.sh: no command to run" >&2
        exit 2
    fi

    need_template
    remove_stale_runs

    command_pid= display_pid=
    # Hidden from those who look for stale runs until it has its lock.
    local hidden
    hidden=$(mktemp -d "$cache/runs/.XXXXXXXX")
    work=$hidden
    trap finish EXIT
    trap 'exit 129' HUP
    trap 'exit 130' INT
    trap 'exit 143' TERM
    exec 7>"$work/lock"
    flock 7
    work=$cache/runs/${hidden##*/.}
    mv "$hidden" "$work"

    copy_template "$work/prefix"
    export WINEPREFIX=$work/prefix
    # Nobody listens; without a sound card the library would complain at every sound.
    printf '\n[Software\\\\Wine\\\\Drivers]\n"Audio"=""\n' >>"$WINEPREFIX/user.reg"
    if [[ $display == yes ]]; then
        start_display
    fi
    # Two programs that start at once would both start the server.
    wineserver -p60 7>&-

    # A process group of its own, so that all of it can be ended.
    set -m
    setpriv --pdeathsig TERM timeout --kill-after=10 "$seconds" "$@" <&0 7>&- &
    command_pid=$!
    set +m
    local code=0
    wait "$command_pid" || code=$?
    if ((code == 124 && seconds > 0)); then
        echo "wine-desktop.sh: ended after $seconds seconds: $*" >&2
    fi
    exit "$code"
}

# The caller's own display; its prefix is kept, so that what the user sets there lasts.
on_display() {
    local name
    name=$(sha256sum <<<"$1")
    shift 2
    need_template
    export WINEPREFIX=$cache/display-${name:0:12}
    (
        flock 8
        if [[ ! -d $WINEPREFIX ]]; then
            rm -rf "$WINEPREFIX.new"
            copy_template "$WINEPREFIX.new"
            mv "$WINEPREFIX.new" "$WINEPREFIX"
            # Here the programs stand among the user's other windows.
            wine reg delete 'HKCU\Software\Wine\Explorer' /v Desktop /f >/dev/null 8>&-
            end_wine wait
        fi
    ) 8>"$cache/display.lock"
    wineserver -p1
    exec "$@"
}

screenshot() {
    if [[ -z ${DISPLAY:-} ]]; then
        echo "screenshot: there is no display" >&2
        return 1
    fi
    mkdir -p "$(dirname "$1")"
    import -window root "$1"
}

command=${1:-}
if [[ $command == screenshot ]]; then
    screenshot "$2"
    exit
fi

export WINEARCH=win64
export WINEDEBUG=${VELLUMBRIDGE_WINEDEBUG:--all}
export WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
if [[ $command == on-display ]]; then
    on_display "${@:2}"
fi

# Nothing of the caller's desktop or language may reach the programs.
unset DISPLAY LANGUAGE WAYLAND_DISPLAY XAUTHORITY
export LC_ALL=C.UTF-8
export -f screenshot

case $command in
run) run "${@:2}" ;;
template) need_template && echo "$template" ;;
*) sed -n '2,6s/^# //p' "$self" && exit 2 ;;
esac
