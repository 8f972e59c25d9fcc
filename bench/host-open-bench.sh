#!/bin/sh
# Times the demo host opening generated projects of a town's sewer network,
# beside the small sample project in the same run, so that the fixed costs
# (start, the screenshot's wait for the window, writing the PNG) show:
#   bench/host-open-bench.sh [NODES...]
# Each project (default 5000 and 10000 nodes, made by make-large-project.py
# with 1 to 4 documents a node, or KAMO_FILES_PER_NODE)
# is opened once with the window saved as a picture ("open") and once with
# the node tools' dialog saved ("tools"), on an operation that shows the
# checkable node tree and with four nodes remembered as checked, and once
# with the preview of "Bezeichnungen abgleichen" saved, which dry-runs over
# every annotation file of the project ("preview"); each reports wall time
# and peak memory (max RSS). Needs a build (build/bin/kamo-host, or
# KAMO_BUILD_DIR) and python3.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
host=${KAMO_BUILD_DIR:-$root/build}/bin/kamo-host
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
[ $# -gt 0 ] || set -- 5000 10000
export QT_QPA_PLATFORM=offscreen

# "seconds megabytes" of one run of the host on a fresh copy of the settings
# file $1, so that no run inherits what the one before saved.
measure() {
    cp "$1" "$work/settings.ini"
    shift
    set -- "$host" --settings "$work/settings.ini" --screenshot "$work/shot.png" "$@"
    if [ -x /usr/bin/time ]; then
        /usr/bin/time -f '%e %M' -o "$work/time" "$@" >/dev/null 2>"$work/stderr" || failed "$@"
    else
        # The same two figures without GNU time: rusage of the finished child.
        python3 -c 'import resource, subprocess, sys, time
start = time.monotonic()
code = subprocess.call(sys.argv[2:], stdout=subprocess.DEVNULL, stderr=open(sys.argv[1], "w"))
open(sys.argv[1] + ".time", "w").write("%.2f %d\n" % (time.monotonic() - start,
    resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss))
sys.exit(code)' "$work/stderr" "$@" || failed "$@"
        mv "$work/stderr.time" "$work/time"
    fi
    awk '{ printf "%.2f %d", $1, $2 / 1024 }' "$work/time"
}

failed() {
    echo "failed: $*" >&2
    cat "$work/stderr" >&2
    exit 1
}

row() {
    name=$1
    folder=$2
    # shellcheck disable=SC2046
    set -- $(python3 -c 'import json, sys; p = json.load(open(sys.argv[1])); print(p["Id"], len(p["Nodes"]))' \
        "$folder/Projekt.json")
    nodes=$2
    files=$(find "$folder/Daten" -name '*.ann' | wc -l)
    printf '[CheckableTree]\n%s\\CheckedItems=Node:2, Node:3, Node:4, Node:5\n\n[NodeToolsDialog]\nLastOperationIndex=1\n' \
        "$1" >"$work/tools.ini"
    printf '[NodeToolsDialog]\nLastOperationIndex=0\n' >"$work/preview.ini"
    open=$(measure /dev/null "$folder")
    tools=$(measure "$work/tools.ini" --open node-tools "$folder")
    preview=$(measure "$work/preview.ini" --open node-tools --click btnPreview "$folder")
    # shellcheck disable=SC2086
    printf '%-28s %7s %7s %8s %8s %8s %8s %9s %10s\n' "$name" "$nodes" "$files" $open $tools $preview
}

printf '%-28s %7s %7s %8s %8s %8s %8s %9s %10s\n' "project" "nodes" "files" "open s" "open MB" "tools s" "tools MB" \
    "preview s" "preview MB"
row "sample (reference)" "$root/sample/Musterstadt-Kanalsanierung"
for count in "$@"; do
    # shellcheck disable=SC2086
    python3 "$root/bench/make-large-project.py" "$work/project" --nodes "$count" \
        ${KAMO_FILES_PER_NODE:+--files-per-node "$KAMO_FILES_PER_NODE"} >/dev/null
    row "generated, $count nodes" "$work/project"
    rm -rf "$work/project"
done
