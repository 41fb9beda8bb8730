# What build.sh, test.sh and run.sh share; to be sourced.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
program_folder=$root/out/Vellumbridge
export HOME=${HOME:-~}

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
