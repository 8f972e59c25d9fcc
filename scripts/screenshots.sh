#!/bin/sh
# Renders the screenshots in docs/images from a copy of the sample project,
# without a display. Run after a build (scripts/demo.sh or scripts/test.sh).
# With --qt6, from a Qt 6 build (build-qt6, or KAMO_BUILD_DIR): the three
# dialogs as the host opens them, named *-qt6.png, to be set beside the
# Qt 5 ones.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
suffix=""
if [ "${1:-}" = "--qt6" ]; then
    suffix="-qt6"
    bin=${KAMO_BUILD_DIR:-$root/build-qt6}/bin
else
    bin=${KAMO_BUILD_DIR:-$root/build}/bin
fi
images=$root/docs/images
# A fixed, short folder: its name shows in the pictures.
work=${TMPDIR:-/tmp}/kamo-demo
project=$work/Musterstadt-Kanalsanierung

rm -rf "$work"
mkdir -p "$work" "$images"
cp -r "$root/sample/Musterstadt-Kanalsanierung" "$work/"

export QT_QPA_PLATFORM=offscreen
shot() {
    settings=$1
    shift
    "$bin/kamo-host" --settings "$settings" "$@" "$project" 2>/dev/null
}

# The shape import on the sample's sheet frames, with the sheet number and
# scale columns assigned.
for lang in en de; do
    cat >"$work/shape-import-$lang.ini" <<INI
[DlgShapeImport]
ImportMode=0
ShapeFile=$project/GIS/Blattschnitte.shp
ScaleImportMode=1
Assignments\Sheets="{\"FieldAssignments\": [{\"FieldName\": \"BLATTNR\", \"TargetFieldId\": 10}, {\"FieldName\": \"MASSSTAB\", \"TargetFieldId\": 20}], \"Version\": 1}"
INI
done
: >"$work/dxf-tools.ini"

: >"$work/host.ini"
[ -z "$suffix" ] && shot "$work/host.ini" --lang de --screenshot "$images/kamo-host.png"

# The nodes of the first construction stage checked, as a user would.
cat >"$work/node-tools.ini" <<'INI'
[CheckableTree]
MS-KS-2024\CheckedItems=Node:2, Node:3, Node:4, Node:5
[NodeToolsDialog]
LastOperationIndex=1
INI
shot "$work/node-tools.ini" --lang de --open node-tools --screenshot "$images/dlg-node-tools$suffix.png"
if [ -n "$suffix" ]; then
    shot "$work/shape-import-de.ini" --lang de --open shape-import --screenshot "$images/dlg-shape-import-de$suffix.png"
    shot "$work/dxf-tools.ini" --lang de --open dxf-tools --screenshot "$images/dlg-dxf-tools-de$suffix.png"
    echo "screenshots: Qt 6 dialogs written to $images"
    exit 0
fi
# What making the links of those nodes split would change, before it is done.
sed 's/^LastOperationIndex=1$/LastOperationIndex=3/' "$work/node-tools.ini" >"$work/node-tools-preview.ini"
shot "$work/node-tools-preview.ini" --lang de --open node-tools --click btnPreview \
    --screenshot "$images/dlg-node-tools-preview.png"
# The link check of the cadastre, whose documents moved to the share ablage/.
cp -r "$root/sample/ablage" "$work/"
cat >"$work/node-tools-links.ini" <<'INI'
[CheckableTree]
MS-KS-2024\CheckedItems=Node:8
[NodeToolsDialog]
LastOperationIndex=5
INI
shot "$work/node-tools-links.ini" --lang de --open node-tools --click btnHREFReplacePathPropose \
    --choose "$work/ablage" --screenshot "$images/dlg-link-check.png"
# Two runs with backups and the undoing of the first, then the list of the
# three backups they left, the second of them damaged by hand (a file cut
# short). The sample itself stays as it was: the copy is made anew below.
"$bin/kamo-tools" node href-to-split --project "$project" --all --backup >/dev/null
sleep 1
"$bin/kamo-tools" node change-pages --project "$project" --all --page-delta 1 --backup >/dev/null
sleep 1
first=$(ls "$project/Daten/ann_sic" | sort -k1.7,1.10 -k1.4,1.5 -k1.1,1.2 -k2 | head -n 1)
"$bin/kamo-tools" node restore --project "$project" --backup "$first" >/dev/null
second=$(ls "$project/Daten/ann_sic" | sort -k1.7,1.10 -k1.4,1.5 -k1.1,1.2 -k2 | sed -n 2p)
truncate -s 100 "$project/Daten/ann_sic/$second/Lageplan_Haltungen.ann"
shot "$work/node-tools.ini" --lang de --open node-tools --click btnBackups \
    --screenshot "$images/dlg-node-tools-backups.png"
rm -rf "$project"
cp -r "$root/sample/Musterstadt-Kanalsanierung" "$work/"

# The shape import, in English and in German.
for lang in en de; do
    case $lang in
    de) language="--lang de" ;;
    *) language= ;;
    esac
    # shellcheck disable=SC2086
    shot "$work/shape-import-$lang.ini" $language --open shape-import --screenshot "$images/dlg-shape-import-$lang.png"
done

# The DXF workbench on the sample's drawing, as the host opens it (German),
# and after a correction and an export, from the dialog's test: the dialog
# in English, its map in English and German.
shot "$work/dxf-tools.ini" --lang de --open dxf-tools --screenshot "$images/dlg-dxf-tools-de.png"
for lang in en de; do
    KAMO_SCREENSHOT_DIR=$images KAMO_SCREENSHOT_DXF=$project/CAD/Blattschnitte.dxf KAMO_SCREENSHOT_LANG=$lang \
        "$bin/DlgDxfToolsTest" showModalRunsTheWorkbench >/dev/null 2>&1
done

# The geo-system chooser of the shape import, from its test.
KAMO_SCREENSHOT_DIR=$images "$bin/GeoSysDlgTest" "chooseGeoSystem:double click on a row" >/dev/null 2>&1

# The analysis result, filled from the sample project by the dialog's test.
KAMO_SCREENSHOT_DIR=$images "$bin/DlgAnalyzeProjectTest" showResultListsTheAnalysisSorted >/dev/null 2>&1

echo "screenshots: written to $images"
