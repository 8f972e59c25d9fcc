#!/bin/sh
# Renders the screenshots in docs/images from a copy of the sample project,
# without a display. Run after a build (scripts/demo.sh or scripts/test.sh).
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
bin=${KAMO_BUILD_DIR:-$root/build}/bin
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
    "$bin/kamo-host" --settings "$settings" --lang de "$@" "$project" 2>/dev/null
}

: >"$work/host.ini"
shot "$work/host.ini" --screenshot "$images/kamo-host.png"

# The nodes of the first construction stage checked, as a user would.
cat >"$work/node-tools.ini" <<'INI'
[CheckableTree]
MS-KS-2024\CheckedItems=Node:2, Node:3, Node:4, Node:5
[NodeToolsDialog]
LastOperationIndex=1
INI
shot "$work/node-tools.ini" --open node-tools --screenshot "$images/dlg-node-tools.png"

# The analysis result, filled from the sample project by the dialog's test.
KAMO_SCREENSHOT_DIR=$images "$bin/DlgAnalyzeProjectTest" showResultOpensTheFilledDialog >/dev/null 2>&1

echo "screenshots: written to $images"
