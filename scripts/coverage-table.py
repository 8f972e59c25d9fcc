#!/usr/bin/env python3
"""Sums a gcovr JSON summary up per folder (src/nodetools, host/view,
apps/kamo-tools, ...): covered and total lines and branches, as a Markdown
table. With a second summary, the change from the first is shown too.

    scripts/coverage-table.py coverage.json [earlier.json]
"""
import json
import sys


STAND_INS = {"Kamo_view": "view", "Kamo_base": "base"}


def per_folder(path):
    with open(path, encoding="utf-8") as f:
        summary = json.load(f)
    folders = {}
    for entry in summary["files"]:
        parts = entry["filename"].split("/")
        # The stand-ins' headers as the build tree names them (include/Kamo_view/...).
        if "include" in parts[:-1] and parts[parts.index("include") + 1] in STAND_INS:
            parts = ["host", STAND_INS[parts[parts.index("include") + 1]]]
        folder = "/".join(parts[:2])
        sums = folders.setdefault(folder, [0, 0, 0, 0])
        sums[0] += entry["line_covered"]
        sums[1] += entry["line_total"]
        sums[2] += entry["branch_covered"]
        sums[3] += entry["branch_total"]
    total = [sum(s[i] for s in folders.values()) for i in range(4)]
    folders["all"] = total
    return folders


def percent(covered, total):
    return 100.0 * covered / total if total else 100.0


def main(argv):
    now = per_folder(argv[1])
    before = per_folder(argv[2]) if len(argv) > 2 else None
    head = "| folder | lines | line % | branches | branch % |"
    rule = "|---|---:|---:|---:|---:|"
    if before:
        head += " line Δ | branch Δ |"
        rule += "---:|---:|"
    print(head)
    print(rule)
    for folder in sorted(now, key=lambda f: (f == "all", f)):
        lc, lt, bc, bt = now[folder]
        row = "| %s | %d/%d | %.1f | %d/%d | %.1f |" % (folder, lc, lt, percent(lc, lt), bc, bt, percent(bc, bt))
        if before:
            was = before.get(folder, [0, 0, 0, 0])
            row += " %+.1f | %+.1f |" % (percent(lc, lt) - percent(was[0], was[1]),
                                        percent(bc, bt) - percent(was[2], was[3]))
        print(row)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
