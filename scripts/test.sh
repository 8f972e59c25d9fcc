#!/bin/sh
# Installs what is missing, then builds and tests twice: the library as a
# host links it (warnings as errors, every test including the package
# consumer and the ABI check against abi/, and the API reference, where an
# undocumented exported member is an error too), and the same library and
# tests under AddressSanitizer and UndefinedBehaviorSanitizer, where each
# fuzz target also runs for a short while on its seed corpus.
set -eu
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/check-format.sh

jobs=$(nproc)

build="build-test"
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAMO_WERROR=ON
cmake --build "$build" --parallel "$jobs"
cmake --build "$build" --target docs
# The ABI check leaves itself out where it cannot run; this build is where
# it must.
if ! (cd "$build" && ctest -N -R '^AbiCheck$' | grep -q 'Total Tests: 1'); then
    echo "test: the ABI check is not set up in $build (abigail-tools missing?)" >&2
    exit 1
fi
(cd "$build" && ctest --output-on-failure --parallel "$jobs")

build="build-sanitize"
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAMO_WERROR=ON \
    -DCMAKE_CXX_COMPILER=clang++ -DKAMO_FUZZ=ON -DKAMO_BUILD_BENCH=OFF
cmake --build "$build" --parallel "$jobs"
(cd "$build" && ctest --output-on-failure --parallel "$jobs")
