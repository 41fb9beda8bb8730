#!/usr/bin/env bash
# Builds and runs every test: format, native tests, benchmarks, Windows tests, desktop tests.
#   ./test.sh                       everything
#   ./test.sh --ring 1|2|3          one ring: native, Windows calls, the program on a desktop
#   ./test.sh --bench               the benchmarks, native and on Windows; one above its bound fails
#   ./test.sh --fuzz [SECONDS]      the fuzz targets, each for that long (60)
#   ./test.sh --thread              the native tests under the thread sanitizer
#   ./test.sh --wine 10 [--ring 2|3]   these rings under a second Wine, which has 32-bit programs too
#   ./test.sh ... --filter PATTERN  only tests whose names match, as GoogleTest's filter does
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/scripts/common.sh"

only= filter='*' fuzz= wine=
while (($# > 0)); do
    case $1 in
    --ring) only=${2:-} && shift && [[ $only == [123] ]] || { usage "$0" && exit 2; } ;;
    --bench) only=bench && export VELLUMBRIDGE_CHECK_BOUNDS=1 ;;
    --fuzz)
        fuzz=60
        [[ ! ${2:-} =~ ^[1-9][0-9]*$ ]] || { fuzz=$2 && shift; }
        ;;
    --thread) only=thread ;;
    --wine) wine=${2:-} && shift && [[ $wine == 10 ]] || { usage "$0" && exit 2; } ;;
    --filter) filter=${2:?} && shift ;;
    *) usage "$0" && exit 2 ;;
    esac
    shift
done

if [[ $wine && ($fuzz || $only == [!23]*) ]]; then
    usage "$0" && exit 2
fi

logs=$root/build/test-logs
desktop=("$root/scripts/wine-desktop.sh")
if [[ $wine ]]; then
    logs+=/wine-$wine
    desktop=("$root/scripts/second-wine.sh" run "${desktop[@]}")
fi
stage= passed=no
ended() {
    # Test programs in the background do not hear Ctrl+C.
    jobs -p | xargs -r kill 2>/dev/null || true
    if [[ $passed == yes ]]; then
        echo "ALL PASSED in $SECONDS s"
    else
        echo "FAILED: ${stage:-options}"
    fi
}
trap ended EXIT

run_stage() {
    local started=$SECONDS
    stage=$1
    shift
    echo
    echo "=== $stage"
    "$@"
    echo "=== $stage: $((SECONDS - started)) s"
}

check_format() {
    find "$root"/{src,tests,bench,fuzz} \( -name '*.cpp' -o -name '*.h' \) -print0 |
        xargs -0 -r -P "$(nproc)" -n 40 clang-format --dry-run -Werror
}

# Runs a test program in shards side by side: run_tests NAME SHARDS COMMAND...
run_tests() {
    local name=$1 shards=$2 shard code=0 pids=() count=0 ran
    shift 2
    mkdir -p "$logs"
    for ((shard = 0; shard < shards; shard++)); do
        GTEST_TOTAL_SHARDS=$shards GTEST_SHARD_INDEX=$shard \
            "$@" --gtest_brief=1 --gtest_color=no "--gtest_filter=$filter" \
            >"$logs/$name-$shard.log" 2>&1 </dev/null &
        pids+=($!)
    done
    for ((shard = 0; shard < shards; shard++)); do
        wait "${pids[shard]}" || code=$?
        tr -d '\r' <"$logs/$name-$shard.log" | sed '/^Running main()/d'
        # A program that ends early with code 0 has no such line.
        ran=$(sed -n 's/^\[  PASSED  \] \([0-9]*\) tests\?\..*/\1/p' "$logs/$name-$shard.log")
        if [[ -z $ran ]]; then
            echo "The test program ended before its tests did." >&2
            code=1
        fi
        count=$((count + ${ran:-0}))
    done
    if ((count == 0 && code == 0)); then
        echo "No test ran." >&2
        code=1
    fi
    return "$code"
}

need_program() {
    if [[ ! -x $1 ]]; then
        echo "There is no test program ${1##*/}." >&2
        return 1
    fi
}

ring_1() {
    local program=$root/build/native/bin/vellumbridge_tests
    need_program "$program"
    UBSAN_OPTIONS=print_stacktrace=1 run_tests ring-1 "$(nproc)" timeout 300 "$program"
}

# Runs a program of benchmarks: run_bench NAME COMMAND...
run_bench() {
    local log=$logs/$1.log
    shift
    mkdir -p "$logs"
    "$@" 2>&1 </dev/null | tr -d '\r' | tee "$log"
    # A program that crashes under Wine may end with code 0.
    if ! grep -q '^[0-9]* benchmarks measured$' "$log"; then
        echo "The program ended before its benchmarks did." >&2
        return 1
    fi
}

thread_tests() {
    local program=$root/build/thread/bin/vellumbridge_tests
    need_program "$program"
    run_tests thread "$(nproc)" timeout 600 "$program"
}

bench() {
    local program=$root/build/bench/bin/vellumbridge_bench
    need_program "$program"
    run_bench bench timeout 300 "$program"
}

build_windows() {
    build windows
    assemble_program
}

ring_2() {
    local program=$root/build/windows/bin/vellumbridge_windows_tests.exe
    need_program "$program"
    run_tests ring-2 1 "${desktop[@]}" run --timeout 300 -- wine "$program"
}

bench_windows() {
    local program=$root/build/windows/bin/vellumbridge_windows_bench.exe
    need_program "$program"
    run_bench bench-windows "${desktop[@]}" run --timeout 300 -- \
        "$root/scripts/with-program.sh" wine "$program"
}

ring_3() {
    local program=$root/build/windows/bin/vellumbridge_desktop_tests.exe
    need_program "$program"
    run_tests ring-3 1 "${desktop[@]}" run --timeout 900 -- \
        "$root/scripts/with-program.sh" wine "$program"
}

# Whether a part was asked for; a second Wine has two parts of its own.
wants() {
    [[ $only == "$1" || (-z $only && (-z $wine || $1 == [23])) ]]
}

# What it finds on the way grows in build/fuzz/corpus; an input that fails is left there too.
fuzz_target() {
    local program=$root/build/fuzz/bin/$1_fuzz work=$root/build/fuzz/corpus/$1 code=0
    need_program "$program"
    mkdir -p "$logs"
    if [[ ! -d $work ]]; then
        mkdir -p "$work"
        # What earlier runs found.
        tar -C "$work" -xf "$root/fuzz/found/$1.tar.xz" 2>/dev/null || true
    fi
    "$program" "-max_total_time=$fuzz" -timeout=10 -max_len=4096 "-artifact_prefix=$work-" \
        "$work" "$root/fuzz/corpus/$1" >"$logs/fuzz-$1.log" 2>&1 </dev/null || code=$?
    if ((code == 0)); then
        echo "$1: $(tail -n 1 "$logs/fuzz-$1.log")"
    else
        grep -v '^#' "$logs/fuzz-$1.log" >&2
    fi
    return "$code"
}

# As many at a time as there are processors.
fuzz_all() {
    local failed=() target job ended_job
    local -A names=()
    for target in "$root"/fuzz/*_fuzz.cpp; do
        if ((${#names[@]} >= $(nproc))); then
            wait -n -p ended_job || failed+=("${names[$ended_job]}")
            unset "names[$ended_job]"
        fi
        target=${target##*/}
        target=${target%_fuzz.cpp}
        fuzz_target "$target" &
        names[$!]=$target
    done
    for job in "${!names[@]}"; do
        wait "$job" || failed+=("${names[$job]}")
    done
    if ((${#failed[@]} > 0)); then
        echo "Found something: ${failed[*]}" >&2
        return 1
    fi
}

if [[ -n $fuzz ]]; then
    run_stage "packages" "$root/scripts/install-packages.sh" --fuzz
    run_stage "fuzz build" build fuzz
    run_stage "fuzz" fuzz_all
    passed=yes
    exit 0
fi

run_stage "packages" "$root/scripts/install-packages.sh"
if [[ $only == thread ]]; then
    run_stage "thread build" build thread
    run_stage "native tests under the thread sanitizer" thread_tests
    passed=yes
    exit 0
fi
if wants format; then
    run_stage "format" check_format
fi
if wants 1; then
    run_stage "native build" build native
    run_stage "ring 1: native tests" ring_1
fi
if wants bench; then
    run_stage "benchmark build" build bench
    run_stage "benchmarks" bench
fi
if [[ $only != 1 ]]; then
    run_stage "windows build" build_windows
fi
if [[ $wine ]]; then
    run_stage "Wine $wine" "$root/scripts/second-wine.sh" make
fi
if wants 2; then
    run_stage "ring 2: Windows calls${wine:+ under Wine $wine}" ring_2
fi
if wants 3; then
    run_stage "ring 3: desktop${wine:+ under Wine $wine}" ring_3
fi
if wants bench; then
    run_stage "benchmarks on Windows" bench_windows
fi
passed=yes
