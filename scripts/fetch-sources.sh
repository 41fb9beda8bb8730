#!/usr/bin/env bash
# Fetches the distribution's source packages, its patches applied, into FOLDER/PACKAGE.
# Usage: fetch-sources.sh FOLDER PACKAGE...
set -euo pipefail

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
mkdir -p "$state/lists/partial" "$state/archives/partial"

# Apart from the machine's own state; apt's sandbox user may not reach into this folder.
private=(
    -q
    -o "Dir::State::Lists=$state/lists"
    -o "Dir::Cache=$state"
    -o "Dir::Cache::archives=$state/archives"
    -o "APT::Sandbox::User=$(id -un)"
)

# The same places this machine takes its packages from, with their sources instead.
codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
keyring=/usr/share/keyrings/debian-archive-keyring.gpg
signed_by=
[[ -r $keyring ]] && signed_by="[signed-by=$keyring] "
list_sources() {
    apt-get "$@" indextargets \
        --format '$(REPO_URI) $(RELEASE) $(COMPONENT) $(ORIGIN)' 'Created-By: Packages' |
        awk -v suite="$codename" -v signed_by="$signed_by" '
            ($2 == suite || $2 == suite "-updates" || $2 == suite "-security") &&
            $3 == "main" && ($4 == "Debian" || $4 == "$(ORIGIN)") {
                print "deb-src " signed_by $1 " " $2 " main"
            }' |
        sort -u >"$state/sources.list"
}
list_sources
if [[ ! -s $state/sources.list ]]; then
    # apt tells its sources only once it has lists; this machine's were thrown away.
    apt-get "${private[@]}" update >/dev/null || true
    list_sources "${private[@]}"
fi
if [[ ! -s $state/sources.list ]]; then
    echo "apt knows no archive of $codename to take sources from" >&2
    exit 1
fi

options=("${private[@]}" -o "Dir::Etc::sourcelist=$state/sources.list" -o Dir::Etc::sourceparts=-)
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
