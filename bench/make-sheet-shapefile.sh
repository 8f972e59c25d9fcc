#!/bin/sh
# Writes a large map-sheet shape file for import benchmarks:
#   bench/make-sheet-shapefile.sh OUTDIR [COUNT]
# COUNT (default 100000) landscape rectangles of 400 m x 300 m in a grid of
# 400 columns, in Gauss-Krueger zone 3 (EPSG:31467) from x=3500000,
# y=5400000, adjacent sheets sharing their edges. Columns BLATTNR (the
# running number, 6 digits) and MASSSTAB (one of four spellings in turn).
# Result: OUTDIR/sheets_grid.shp/.shx/.dbf/.prj. The output is the same on
# every run (the .dbf date is fixed). Needs ogr2ogr (Debian: gdal-bin).
set -eu

if [ $# -lt 1 ] || [ $# -gt 2 ]; then
    echo "usage: $0 OUTDIR [COUNT]" >&2
    exit 2
fi
outdir=$1
count=${2:-100000}
case $count in
'' | *[!0-9]*)
    echo "COUNT must be a positive number" >&2
    exit 2
    ;;
esac
[ "$count" -gt 0 ] || {
    echo "COUNT must be a positive number" >&2
    exit 2
}

mkdir -p "$outdir"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

now() { date +%s.%N; }

start=$(now)
awk -v n="$count" 'BEGIN {
    split("M 1:2.500|1:1000|1:5000|1:2500", scale, "|")
    print "WKT,BLATTNR,MASSSTAB"
    for (i = 0; i < n; i++) {
        x = 3500000 + (i % 400) * 400
        y = 5400000 + int(i / 400) * 300
        printf "\"POLYGON((%d %d,%d %d,%d %d,%d %d,%d %d))\",\"%06d\",\"%s\"\n",
            x, y, x, y + 300, x + 400, y + 300, x + 400, y, x, y, i + 1, scale[i % 4 + 1]
    }
}' >"$work/sheets_grid.csv"
echo '"WKT","String(10)","String(20)"' >"$work/sheets_grid.csvt"
generated=$(now)

rm -f "$outdir/sheets_grid.shp" "$outdir/sheets_grid.shx" "$outdir/sheets_grid.dbf" \
    "$outdir/sheets_grid.prj" "$outdir/sheets_grid.cpg"
ogr2ogr -f "ESRI Shapefile" -a_srs EPSG:31467 -nlt POLYGON -oo KEEP_GEOM_COLUMNS=NO \
    -nln sheets_grid "$outdir/sheets_grid.shp" "$work/sheets_grid.csv"
# ogr2ogr stamps today's date into the .dbf header; 2024-01-15 instead.
printf '\174\001\017' | dd of="$outdir/sheets_grid.dbf" bs=1 seek=1 count=3 conv=notrunc 2>/dev/null
done_at=$(now)

awk -v s="$start" -v g="$generated" -v d="$done_at" -v n="$count" -v out="$outdir/sheets_grid.shp" 'BEGIN {
    printf "%d sheets -> %s\n", n, out
    printf "csv %.2f s, ogr2ogr %.2f s, total %.2f s\n", g - s, d - g, d - s
}'
