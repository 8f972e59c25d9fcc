#!/bin/sh
# Fails when a tracked C++ file differs from the committed .clang-format style.
set -eu
cd "$(dirname "$0")/.."
files=$(git ls-files '*.cpp' '*.h')
[ -n "$files" ] || exit 0
# shellcheck disable=SC2086
clang-format --dry-run --Werror $files
