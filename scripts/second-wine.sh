#!/usr/bin/env bash
# A second Wine, that of the next Debian release, in a root of its own where 32-bit programs run too.
#   second-wine.sh make             makes it, once; ends with 69 and tells why when it can't be had
#   second-wine.sh run COMMAND...   runs a command in it, which sees the project's folder and /tmp
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

version=10
suite=trixie

unavailable() {
    echo "No second Wine here: $1" >&2
    exit 69
}

# Becomes a command in a root. In a mount namespace of its own, so that nothing stays mounted on
# this machine, however that ends.
enter() {
    exec unshare -m bash -c '
        set -e
        into=$1 project=$2
        shift 2
        for folder in /proc /dev /tmp "$project"; do
            mkdir -p "$into$folder"
            mount --rbind "$folder" "$into$folder"
        done
        # Prefixes stay in the root; none of its Wine meets the other.
        exec env -u XDG_CACHE_HOME -u TMPDIR HOME=/root \
            PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
            chroot "$into" env -C "$project" "$@"
    ' bash "$1" "$root" "${@:2}"
}

make_root() {
    local into=$1 packages
    packages=$(IFS=, && echo "${desktop_packages[*]}")
    # It mounts on the way, too.
    unshare -m mmdebstrap --mode=root --variant=apt \
        --aptopt='APT::Install-Recommends "false"' --aptopt='Acquire::Check-Valid-Until "false"' \
        --include="$packages" "$suite" "$into" "deb ${signed_by:+[$signed_by] }$uri $suite main"
}

# Sets `second` to the root's folder, which is named after what it is made of.
name_root() {
    local recipe
    recipe=$({ declare -f make_root && echo "$suite ${desktop_packages[*]}"; } | sha256sum)
    second=$cache/second-wine-${recipe:0:12}
}

need_root() {
    local log=$cache/second-wine.log said
    if [[ -d $second ]]; then
        return
    fi
    if ! command -v mmdebstrap >/dev/null; then
        "$root/scripts/install-packages.sh" --second-wine ||
            unavailable "mmdebstrap can't be installed"
    fi
    find_uri
    echo "== Making a root with Wine $version, about 2 GB"
    make_root "$second.new" >"$log" 2>&1 </dev/null ||
        unavailable "mmdebstrap failed: $({ grep '^E:' "$log" || tail -n 1 "$log"; } | head -n 1)"
    said=$(enter "$second.new" env WINEDEBUG=-all wine --version) || true
    [[ $said == "wine-$version."* ]] || unavailable "the Wine of $suite is [$said], not $version"
    # Roots of an older recipe are large.
    find "$cache" -maxdepth 1 -name 'second-wine-*' -mtime +7 ! -path "$second*" -exec rm -rf {} +
    mv "$second.new" "$second"
}

# Sets `uri` to the place this machine takes its own release from.
find_uri() {
    use_private_apt "$work"
    find_archives
    uri=$(awk '$2 !~ /-/ && !seen++ { print $1 }' <<<"$archives")
    [[ $uri ]] || unavailable "apt knows no archive to take it from"
}

# Wine runs 32-bit programs by itself where it has its Windows files of that width. The package for
# the other architecture has them; only those of the same version fit.
fetch_32_bit() {
    local wanted upstream versions release options
    wanted=$(dpkg-query --admindir="$second/var/lib/dpkg" -W -f '${Version}' libwine)
    upstream=${wanted%%[-~+]*}
    find_uri
    for release in "$suite" sid; do
        echo "deb [arch=i386${signed_by:+ $signed_by}] $uri $release main"
    done >"$work/sources.list"
    options=(
        "${private_apt[@]}" -o APT::Architectures::=amd64 -o APT::Architectures::=i386
        -o "Dir::Etc::sourcelist=$work/sources.list" -o Dir::Etc::sourceparts=-
        -o Acquire::Check-Valid-Until=false -o Acquire::Languages=none
    )
    # One list that can't be had leaves the other.
    apt-get "${options[@]}" update || true
    versions=$(apt-cache "${options[@]}" madison libwine:i386 | awk '{ print $3 }' |
        grep "^${upstream}[-~+]")
    if [[ -z $versions ]]; then
        echo "E: no libwine:i386 of version $upstream in $suite or sid"
        return 1
    fi
    versions=$(grep -Fx "$wanted" <<<"$versions" || head -n 1 <<<"$versions")
    (cd "$work" && apt-get "${options[@]}" download "libwine:i386=$versions") &&
        dpkg-deb -x "$work"/libwine_*.deb "$work/unpacked"
}

need_32_bit() {
    local into=$second/usr/lib/x86_64-linux-gnu/wine/i386-windows log=$cache/second-wine.32-bit.log
    local from=$work/unpacked/usr/lib/i386-linux-gnu/wine/i386-windows
    if [[ -e $into/ntdll.dll ]]; then
        return
    fi
    echo "== Fetching the 32-bit files of Wine $version"
    if ! (fetch_32_bit) >"$log" 2>&1 </dev/null; then
        echo "No 32-bit programs under the second Wine: $(tail -n 1 "$log")"
        return
    fi
    # The one that stands for all comes last.
    find "$from" -type f ! -name ntdll.dll -exec mv -t "$into" {} +
    mv "$from/ntdll.dll" "$into"
}

make() {
    ((EUID == 0)) || unavailable "making and entering its root takes root"
    unshare -m true 2>/dev/null || unavailable "nothing can be mounted"
    mkdir -p "$cache"
    exec 9>"$cache/second-wine.lock"
    flock 9
    work=$cache/second-wine.work
    rm -rf "$work" "$second.new"
    trap 'rm -rf "$work" "$second.new"' EXIT
    need_root
    need_32_bit
    touch "$second"
}

name_root
case ${1:-} in
make) make ;;
run) enter "$second" "${@:2}" ;;
*) usage "$0" && exit 2 ;;
esac
