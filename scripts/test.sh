#!/bin/sh
# Installs what is missing, builds everything with warnings as errors and
# runs all tests (unit, GUI offscreen, command line, package consumer).
set -eu
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/check-format.sh

build=build-test
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAMO_WERROR=ON
cmake --build "$build" --parallel "$(nproc)"
cd "$build"
ctest --output-on-failure --parallel "$(nproc)"
