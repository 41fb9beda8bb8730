# What build.sh, test.sh and run.sh share; to be sourced.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
program_folder=$root/out/Vellumbridge
export HOME=${HOME:-~}
cache=${XDG_CACHE_HOME:-$HOME/.cache}/vellumbridge

# What a Windows desktop to run the program on is made of.
desktop_packages=(
    fonts-dejavu-core fonts-liberation fonts-wine imagemagick libxcursor1 libxi6 libxrandr2
    libxrender1 wine wine64 x11-xkb-utils xdotool xvfb
)

# Prints the comment that heads a script as its help.
usage() {
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$1"
}

# Configures a preset and builds all of it, or the targets named.
build() {
    local preset=$1 target arguments=()
    shift
    for target in "$@"; do
        arguments+=(--target "$target")
    done
    # A person watches the progress, a log wants the failures only.
    [[ -t 1 ]] || arguments+=(-- --quiet)

    mkdir -p "$root/build"
    echo "== Configuring the $preset build"
    if ! (cd "$root" && cmake --preset "$preset") >"$root/build/$preset-configure.log" 2>&1; then
        cat "$root/build/$preset-configure.log" >&2
        return 1
    fi
    echo "== Building: $preset ${*:-all}"
    # Two linkers that write one file at once leave a program that starts and is wrong.
    flock "$root/build/$preset.lock" cmake --build "$root/build/$preset" "${arguments[@]}"
}

# Brings the program folder up to date with the windows build.
assemble_program() {
    local manifest=$root/build/windows/install_manifest.txt before=
    echo "== Assembling out/Vellumbridge"
    [[ ! -e $manifest ]] || before=$(sort "$manifest")
    (cd "$root" && cmake --install build/windows --strip) >"$root/build/windows-install.log"
    # What an earlier build put there and this one does not goes; files of the user stay.
    comm -23 <(echo "$before") <(sort "$manifest") | sed '/^$/d' | tr '\n' '\0' | xargs -0 -r rm -f
}

# Sets `private_apt` to options that keep apt apart from the machine's own state, in a folder.
use_private_apt() {
    mkdir -p "$1/lists/partial" "$1/archives/partial"
    # apt's sandbox user may not reach into this folder.
    private_apt=(
        -q
        -o "Dir::State::Lists=$1/lists"
        -o "Dir::Cache=$1"
        -o "Dir::Cache::archives=$1/archives"
        -o "APT::Sandbox::User=$(id -un)"
    )
}

# Prints the places this machine takes its release's packages from, a line each: URI and suite.
list_archives() {
    local codename
    codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
    apt-get "$@" indextargets \
        --format '$(REPO_URI) $(RELEASE) $(COMPONENT) $(ORIGIN)' 'Created-By: Packages' |
        awk -v suite="$codename" '
            ($2 == suite || $2 == suite "-updates" || $2 == suite "-security") &&
            $3 == "main" && ($4 == "Debian" || $4 == "$(ORIGIN)") { print $1, $2 }' |
        sort -u
}

# Sets `archives` to these places, and `signed_by` to the option of source lists that trusts them.
find_archives() {
    local keyring=/usr/share/keyrings/debian-archive-keyring.gpg
    signed_by=
    [[ ! -r $keyring ]] || signed_by="signed-by=$keyring"
    archives=$(list_archives)
    if [[ -z $archives ]]; then
        # apt tells its sources only once it has lists; this machine's were thrown away.
        apt-get "${private_apt[@]}" update >/dev/null || true
        archives=$(list_archives "${private_apt[@]}")
    fi
}
