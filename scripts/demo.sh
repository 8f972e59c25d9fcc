#!/bin/sh
# Installs what is missing, builds, and shows the tools on a copy of the
# bundled sample project: with a display in the demo host window, without one
# on the command line, showing what each operation changed.
set -eu
cd "$(dirname "$0")/.."
export LC_ALL=C.UTF-8

scripts/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --parallel "$(nproc)" >/dev/null

tool="$PWD/build/bin/kamo-tools"
# All lower case: a link that the path map redirects is written in lower
# case, and only a lower-case path leads to its file on this file system.
work=${TMPDIR:-/tmp}/kamo-demo-$(id -u)
rm -rf "$work" && mkdir -p "$work"
project="$work/Musterstadt-Kanalsanierung"
cp -r sample/Musterstadt-Kanalsanierung sample/ablage "$work/"

# The copy's own settings file keeps the user's settings out of the demo.
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    echo "Demo host on $project (the sample itself stays untouched)"
    exec "$PWD/build/bin/kamo-host" --settings "$work/kamo-host.ini" "$project"
fi

# Link fields are separated by control characters; show them as symbols.
visible() {
    sed "s/$(printf '\021')/␑/g; s/$(printf '\022')/␒/g; s/$(printf '\023')/␓/g; s/$(printf '\r')//g"
}

# Per changed file: how many link lines went and came; then one example.
summary() {
    for before in "$work"/before/*.ann; do
        after="$project/Daten/$(basename "$before")"
        changes=$(diff --strip-trailing-cr "$before" "$after" | visible) || true
        [ -n "$changes" ] || continue
        removed=$(printf '%s\n' "$changes" | grep -c '^< HREF=' || true)
        added=$(printf '%s\n' "$changes" | grep -c '^> HREF=' || true)
        printf '  links -%s +%s  %s\n' "$removed" "$added" "$(basename "$after")"
    done
    echo "  for example:"
    (cd "$work" && diff -r --strip-trailing-cr -x ann_sic before "$project/Daten" || true) | visible |
        grep -E '^[<>] HREF=' | sed "s|$work/||g" | head -n 2 | sed -E 's/^(.{100}).+/    \1…/'
}

step() {
    echo
    echo "=== kamo-tools $*" | sed "s|$work/||g"
    rm -rf "$work/before" && cp -r "$project/Daten" "$work/before"
    "$tool" "$@"
    summary
}

echo
echo "=== kamo-tools analyze (which annotation files the project's nodes use)"
"$tool" analyze --project "$project" | sed "s|$work/||g" | grep -A1 -E '^(Used|Unused|Documents without)'

echo
echo "=== kamo-tools node change-pages --dry-run (nothing is written)"
"$tool" node change-pages --project "$project" --page-delta 1 --name-filter '^Haltung' --all --dry-run |
    sed "s|$work/||g"

step node remove-href --project "$project" --backup --category Schacht --all
stamp=$(basename "$(ls -d "$project"/Daten/ann_sic/*)")
step node duplicate-href --project "$project" --new-target 'C:\Projekte\Musterstadt\PDF\Nachtrag.pdf' \
    Lageplan_Haltungen.pdf Schachtprotokoll_S12.pdf Schnitt.A-A.pdf
step node map-href-paths --project "$project" --map "$project/Pfadumsetzung.csv" --all
step node href-to-split --project "$project" --nodes "Haltung H0815,Bauabschnitt 1"
step node match-names --project "$project"
step node convert-pins --project "$project" --all

echo
echo "=== kamo-tools node restore --backup '$stamp' (undoes all of the above)"
"$tool" node restore --project "$project" --backup "$stamp" | sed "s|$work/||g"
if diff -r -x ann_sic sample/Musterstadt-Kanalsanierung/Daten "$project/Daten" >/dev/null; then
    echo "  the annotation files are byte for byte those of the sample again"
fi

echo
echo "=== kamo-tools links check --nodes Kanalkataster --search ablage --write-map Pfadzuordnung.csv"
echo "    (the cadastre's documents moved from the old server /mnt/kanal-alt to the share ablage/)"
status=0
"$tool" links check --project "$project" --nodes Kanalkataster --search "$work/ablage" \
    --write-map "$project/Pfadzuordnung.csv" >"$work/links.txt" || status=$?
sed "s|$work/||g" "$work/links.txt"
echo "  exit status $status: targets are missing"
echo
echo "=== kamo-tools node map-href-paths --map Pfadzuordnung.csv --nodes Kanalkataster --dry-run (the preview)"
"$tool" node map-href-paths --project "$project" --map "$project/Pfadzuordnung.csv" --nodes Kanalkataster \
    --dry-run | sed "s|$work/||g"
step node map-href-paths --project "$project" --map "$project/Pfadzuordnung.csv" --nodes Kanalkataster
echo
echo "=== kamo-tools links check --nodes Kanalkataster (what is left for the user to decide)"
status=0
"$tool" links check --project "$project" --nodes Kanalkataster >"$work/links.txt" || status=$?
sed "s|$work/||g" "$work/links.txt"
echo "  exit status $status"

echo
echo "=== kamo-tools dxf gk2 CAD/Blattschnitte.dxf (the sheet corners of the CAD drawing for the host)"
"$tool" dxf gk2 "$project/CAD/Blattschnitte.dxf" "$work/Blattschnitte.gk2" | sed "s|$work/||g"
echo "  the first sheet of $work/Blattschnitte.gk2:" | sed "s|$work/||g"
head -n 7 "$work/Blattschnitte.gk2" | tr -d '\r' | sed 's/^/    /'

echo
echo "Backups and logs: $(ls -d "$project"/Daten/ann_sic/* | tr '\n' ' ')"
echo "The changed copy stays in $project; the sample itself is untouched."
