#!/bin/sh
# Installs what is missing, builds, and runs the node tools on a copy of the
# bundled sample project, showing what each operation changed.
set -eu
cd "$(dirname "$0")/.."
export LC_ALL=C.UTF-8

scripts/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --parallel "$(nproc)" >/dev/null

tool="$PWD/build/bin/kamo-tools"
work=$(mktemp -d)
project="$work/Musterstadt-Kanalsanierung"
cp -r sample/Musterstadt-Kanalsanierung "$work/"

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
        grep -E '^[<>] HREF=' | head -n 2 | sed -E 's/^(.{100}).+/    \1…/'
}

step() {
    echo
    echo "=== kamo-tools $*" | sed "s|$work/||g"
    rm -rf "$work/before" && cp -r "$project/Daten" "$work/before"
    "$tool" "$@"
    summary
}

step node remove-href --project "$project" --backup --category Schacht --all
step node duplicate-href --project "$project" --new-target 'C:\Projekte\Musterstadt\PDF\Nachtrag.pdf' \
    Lageplan_Haltungen.pdf Schachtprotokoll_S12.pdf Schnitt.A-A.pdf
step node map-href-paths --project "$project" --map "$project/Pfadumsetzung.csv" --all

echo
echo "Backup and log: $(ls -d "$project"/Daten/ann_sic/*)"
echo "The changed copy stays in $project; the sample itself is untouched."
