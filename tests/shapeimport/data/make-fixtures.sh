#!/bin/sh
# Rebuilds this folder's shape files from the CSV sources in src/, then the
# damaged copies in corrupt/ (README.md tells why). Needs ogr2ogr (gdal-bin).
set -eu
here=$(cd "$(dirname "$0")" && pwd)

convert() { # NAME GEOMTYPE [ogr2ogr options...]
    name=$1 type=$2
    shift 2
    for ext in shp shx dbf prj cpg; do rm -f "$here/$name.$ext"; done
    ogr2ogr -f "ESRI Shapefile" -a_srs EPSG:31467 -nlt "$type" -oo KEEP_GEOM_COLUMNS=NO -nln "$name" "$@" \
        "$here/$name.shp" "$here/src/$name.csv"
    # Not today's date in the .dbf header: the same bytes on every run.
    printf '\174\001\017' | dd of="$here/$name.dbf" bs=1 seek=1 count=3 conv=notrunc 2>/dev/null
}

for name in sheets sheets_turned empty nodbf; do convert $name POLYGON; done
rm -f "$here/nodbf.dbf" "$here/nodbf.cpg" "$here/nodbf.prj"
convert routes MULTILINESTRING -lco ENCODING=UTF-8
convert districts MULTIPOLYGON
convert districts_ccw MULTIPOLYGON --config SHAPE_REWIND_ON_WRITE NO
convert buildings POLYGON -lco ENCODING=LATIN1
convert points_z POINTZ
convert multipatch GEOMETRY -lco SHPT=MULTIPATCH
convert stars POINT

# NAME.shp, .shx and .dbf (no reader may bail out early on a missing one) as
# SOURCE's, .shp cut to LENGTH (- whole), BYTES written at OFFSET in NAME.EXT.
damage() { # NAME SOURCE LENGTH [EXT OFFSET BYTES]...
    for ext in shp shx dbf; do cp "$here/$2.$ext" "$here/corrupt/$1.$ext"; done
    [ "$3" = - ] || head -c "$3" "$here/$2.shp" >"$here/corrupt/$1.shp"
    name=$1
    shift 3
    while [ $# -gt 0 ]; do
        printf "$3" | dd of="$here/corrupt/$name.$1" bs=1 seek="$2" conv=notrunc 2>/dev/null
        shift 3
    done
}
mkdir -p "$here/corrupt"
damage truncated sheets 440
damage badshx sheets - shx 108 '\000\020\000\000' shx 124 '\200\342\320\355\242\176\010\160' shx 144 '\177\377\000\000'
damage tiny sheets 60
damage baddbf sheets - dbf 8 '\141\000\007\000'
damage dbfcount sheets - dbf 4 '\200\226\230\000'
damage parts sheets - shp 280 '\100\102\017\000' shp 552 '\377\377\377\177'
damage partstarts districts - shp 288 '\005\000\000\000\000\000\000\000' shp 508 '\000\000\000\000\347\003\000\000'
damage nan sheets - shp 316 '\000\000\000\000\000\000\370\177'
