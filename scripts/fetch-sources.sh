#!/usr/bin/env bash
# Fetches the distribution's source packages, its patches applied, into FOLDER/PACKAGE.
# Usage: fetch-sources.sh FOLDER PACKAGE...
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

folder=$1
shift

mkdir -p "$folder"
folder=$(cd "$folder" && pwd)

# Two builds of one checkout may configure at the same time.
exec 9>"$folder/.lock"
flock 9

missing=()
for package in "$@"; do
    [[ -d $folder/$package ]] || missing+=("$package")
done
if ((${#missing[@]} == 0)); then
    exit 0
fi

echo "== Fetching sources: ${missing[*]}"
state=$folder/.apt
use_private_apt "$state"
find_archives
if [[ -z $archives ]]; then
    echo "apt knows no archive of this release to take sources from" >&2
    exit 1
fi
# The same places this machine takes its packages from, with their sources instead.
while read -r uri suite; do
    echo "deb-src ${signed_by:+[$signed_by] }$uri $suite main"
done <<<"$archives" >"$state/sources.list"

options=("${private_apt[@]}" -o "Dir::Etc::sourcelist=$state/sources.list" -o Dir::Etc::sourceparts=-)
apt-get "${options[@]}" update >/dev/null

for package in "${missing[@]}"; do
    work=$folder/.unpack-$package
    rm -rf "$work"
    mkdir "$work"
    (cd "$work" && apt-get "${options[@]}" --only-source source "$package" >/dev/null)
    # A whole folder appears at once, so that an interrupted fetch is started anew.
    mv "$work"/*/ "$folder/$package"
    rm -rf "$work"
done
