#!/bin/sh
# Fails when a C++ file of the project differs from the committed
# .clang-format style. The files are found by their folders, not through git:
# a fresh machine may have the sources without git.
set -eu
cd "$(dirname "$0")/.."
files=$(find src host apps tests bench -type f \( -name '*.cpp' -o -name '*.h' \) | sort)
[ -n "$files" ] || exit 0
# shellcheck disable=SC2086
clang-format --dry-run --Werror $files
