#!/bin/sh
# Rebuilds the shape-file fixtures of this folder from the CSV sources in
# src/ (geometry as WKT, column types and widths in the .csvt beside each
# CSV). Needs ogr2ogr (Debian: gdal-bin) and python3 (for the corrupt copies).
#
# The output is byte-for-byte reproducible: ogr2ogr writes today's date into
# every .dbf header, so that date is overwritten with a fixed one afterwards.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
src="$here/src"
out="$here"

# Written into bytes 1..3 of each .dbf header (YY since 1900, MM, DD):
# 2024-01-15.
dbf_date='\174\001\017'

convert() {
    # convert NAME GEOMTYPE [extra ogr2ogr options...]
    name=$1
    geomtype=$2
    shift 2
    rm -f "$out/$name.shp" "$out/$name.shx" "$out/$name.dbf" "$out/$name.prj" "$out/$name.cpg"
    ogr2ogr -f "ESRI Shapefile" -a_srs EPSG:31467 -nlt "$geomtype" \
        -oo KEEP_GEOM_COLUMNS=NO -nln "$name" "$@" \
        "$out/$name.shp" "$src/$name.csv"
    printf "$dbf_date" | dd of="$out/$name.dbf" bs=1 seek=1 count=3 conv=notrunc 2>/dev/null
}

convert sheets POLYGON
convert sheets_turned POLYGON
convert empty POLYGON
# UTF-8 here (with its .cpg) and Latin-1 for the buildings, so that both
# encodings an importer meets in practice are covered.
convert routes MULTILINESTRING -lco ENCODING=UTF-8
convert districts MULTIPOLYGON
convert buildings POLYGON -lco ENCODING=LATIN1
convert points_z POINTZ
# Outer rings counter-clockwise and a clockwise hole, as some writers leave
# them: without the rewind ogr2ogr keeps the sense of the source.
convert districts_ccw MULTIPOLYGON --config SHAPE_REWIND_ON_WRITE NO
# A triangle strip, a triangle fan, and floor and roof with a courtyard.
convert multipatch GEOMETRY -lco SHPT=MULTIPATCH
# A text of stars beside numbers without value.
convert stars POINT
convert nodbf POLYGON
rm -f "$out/nodbf.dbf" "$out/nodbf.cpg" "$out/nodbf.prj"

python3 "$here/make-corrupt.py"
