#!/bin/sh
# Times "kamo-tools shape import sheets" on a generated file of map sheets
# beside GDAL reading the same file (ogrinfo -al -q, ogr2ogr -f GeoJSON), all
# in one run so that the figures share the machine's state:
#   bench/shape-import-bench.sh [COUNT] [ROUNDS]
# COUNT sheets (default 100000), best of ROUNDS runs each (default 3). Needs a
# build (build/bin/kamo-tools, or KAMO_BUILD_DIR) and gdal-bin.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
tool=${KAMO_BUILD_DIR:-$root/build}/bin/kamo-tools
count=${1:-100000}
rounds=${2:-3}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$root/bench/make-sheet-shapefile.sh" "$work" "$count" >/dev/null
file=$work/sheets_grid.shp

# Best wall time of ROUNDS runs of a command, in milliseconds.
best() {
    best_ms=
    i=0
    while [ "$i" -lt "$rounds" ]; do
        start=$(date +%s%N)
        "$@" >/dev/null 2>"$work/stderr" || {
            echo "failed: $*" >&2
            cat "$work/stderr" >&2
            exit 1
        }
        end=$(date +%s%N)
        ms=$(((end - start) / 1000000))
        if [ -z "$best_ms" ] || [ "$ms" -lt "$best_ms" ]; then
            best_ms=$ms
        fi
        i=$((i + 1))
    done
    echo "$best_ms"
}

geojson() {
    rm -f "$work/out.geojson"
    ogr2ogr -f GeoJSON "$work/out.geojson" "$file"
}

sheets="$tool shape import sheets $file --assign SheetNr=BLATTNR --assign SheetScale=MASSSTAB --scale-from-table"
ogrinfo_ms=$(best ogrinfo -ro -al -q "$file")
geojson_ms=$(best geojson)
# shellcheck disable=SC2086
import_ms=$(best $sheets)
# shellcheck disable=SC2086
convert_ms=$(best $sheets --from EPSG:31467 --to EPSG:25832)

printf '%s sheets (%s points), best of %s runs\n' "$count" "$((count * 5))" "$rounds"
printf '%-52s %8s %8s\n' "command" "ms" "ratio"
for line in "ogrinfo -ro -al -q (reads every feature) $ogrinfo_ms" \
    "ogr2ogr -f GeoJSON $geojson_ms" \
    "kamo-tools shape import sheets $import_ms" \
    "kamo-tools shape import sheets --from 31467 --to 25832 $convert_ms"; do
    ms=${line##* }
    name=${line% *}
    printf '%-52s %8s %8s\n' "$name" "$ms" "$(awk "BEGIN { printf \"%.2f\", $ms / $ogrinfo_ms }")"
done
