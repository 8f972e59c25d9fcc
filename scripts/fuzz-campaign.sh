#!/bin/sh
# A long fuzz campaign: every fuzz target of tests/fuzz for SECONDS (default
# 600) on a copy of its seed corpus, as many at a time as there are cores.
# shapelib and dxflib are the sanitizer-built ones of
# scripts/build-sanitized-deps.sh (built first when missing), so that faults
# inside them show too; the normal builds keep the system's.
#
#   scripts/fuzz-campaign.sh [SECONDS] [TARGET...]
#
# Prints per target the inputs run, the coverage reached and what was found;
# findings stay in build-fuzz/campaign/<target>-*, the grown corpora in
# build-fuzz/campaign/<target>/. Exit status 1 when anything was found.
set -eu
cd "$(dirname "$0")/.."
root=$PWD

seconds=${1:-600}
[ $# -gt 0 ] && shift
targets=${*:-"AnnotationTextFuzzer LinkValueFuzzer PathMapFuzzer ProjectDescriptionFuzzer FieldAssignmentFuzzer ShapeImportFuzzer DxfFuzzer RectangleDetectorFuzzer"}

scripts/install-deps.sh
prefix=$root/build-sanitized-deps/prefix
# A library whose source cannot be had (a mirror without it) is fuzzed as
# the system has it; the summary says which ones were instrumented.
scripts/build-sanitized-deps.sh "$prefix" || echo "fuzz-campaign: going on with what was instrumented" >&2
instrumented=$(cd "$prefix/lib/pkgconfig" 2>/dev/null && ls ./*.pc 2>/dev/null | sed 's|^\./||; s|\.pc$||' | tr '\n' ' ')

build=$root/build-fuzz
PKG_CONFIG_PATH=$prefix/lib/pkgconfig cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_COMPILER=clang++ -DKAMO_FUZZ=ON -DKAMO_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" --parallel "$(nproc)" --target $targets

campaign=$build/campaign
mkdir -p "$campaign"
# The options the tests use (tests/CMakeLists.txt), with full stacks for
# the targets whose Qt leak suppression needs them.
asan="detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1:check_initialization_order=1"
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export LSAN_OPTIONS=suppressions=$root/tests/sanitizer/lsan.supp:print_suppressions=0

options_for() {
    case $1 in
    ProjectDescriptionFuzzer | FieldAssignmentFuzzer) echo "fast_unwind_on_malloc=0:$asan" ;;
    *) echo "$asan" ;;
    esac
}

# In fork mode a job that the wrap-up kills can leave an artifact of an input
# that does nothing wrong (an empty "crash-da39a3…"); only what fails again
# when run on its own counts as found.
reproduces() {
    ASAN_OPTIONS=$(options_for "$1") "$build/bin/$1" -timeout=20 -rss_limit_mb=2560 "$2" >"$2.repro.log" 2>&1 && return 1
    return 0
}

run() {
    target=$1
    mkdir -p "$campaign/$target"
    options=$(options_for "$target")
    dictionary=
    [ -f "tests/fuzz/$target.dict" ] && dictionary=-dict=tests/fuzz/$target.dict
    # -fork keeps going after a finding, so one fault does not end the run.
    # shellcheck disable=SC2086
    ASAN_OPTIONS=$options "$build/bin/$target" -fork=1 -ignore_crashes=1 -ignore_timeouts=1 -ignore_ooms=1 \
        -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2560 -print_final_stats=1 $dictionary \
        -artifact_prefix="$campaign/$target-" "$campaign/$target" "tests/fuzz/corpus/$target" \
        >"$campaign/$target.log" 2>&1 || true
}

summary() {
    target=$1
    log=$campaign/$target.log
    runs=$(grep -o -E 'exec/s:? [0-9]+' "$log" | tail -n 1 | sed 's/.* //')
    total=$(grep -E '^#[0-9]+' "$log" | tail -n 1 | sed -E 's/^#([0-9]+).*/\1/')
    cov=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1 | cut -d' ' -f2)
    ft=$(grep -o 'ft: [0-9]*' "$log" | tail -n 1 | cut -d' ' -f2)
    corpus=$(find "$campaign/$target" -type f | wc -l)
    found=0
    for artifact in $(find "$campaign" -maxdepth 1 -name "$target-*" ! -name '*.repro.log' -type f); do
        if reproduces "$target" "$artifact"; then
            found=$((found + 1))
        else
            echo "not reproduced: $artifact" >&2
        fi
    done
    failures=$(grep -o 'oom/timeout/crash: [0-9/]*' "$log" | tail -n 1 | sed 's/.* //')
    printf '%-26s %12s %8s %8s %8s %8s %6s %18s\n' "$target" "${total:-?}" "${runs:-?}" "${cov:-?}" "${ft:-?}" \
        "$corpus" "$found" "${failures:-?}"
}

jobs=$(nproc)
running=0
for target in $targets; do
    run "$target" &
    running=$((running + 1))
    if [ "$running" -ge "$jobs" ]; then
        wait
        running=0
    fi
done
wait

echo "instrumented libraries: ${instrumented:-none}; ${seconds} s a target"
printf '%-26s %12s %8s %8s %8s %8s %6s %18s\n' target inputs exec/s cov ft corpus found oom/timeout/crash
status=0
for target in $targets; do
    line=$(summary "$target")
    echo "$line"
    [ "$(echo "$line" | awk '{print $7}')" = 0 ] || status=1
done
exit $status
