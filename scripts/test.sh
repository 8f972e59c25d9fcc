#!/bin/sh
# Installs what is missing, then builds and tests three times: the library
# as a host links it (warnings as errors, every test including the package
# consumer, the ABI check against abi/ and the Windows compile check, and
# the API reference, where an undocumented exported member is an error
# too); the same against Qt 6; and the Qt 5 library and tests under
# AddressSanitizer and UndefinedBehaviorSanitizer, where each fuzz target
# also runs for a short while on its seed corpus.
set -eu
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/check-format.sh

jobs=$(nproc)

# Checks that leave themselves out where they cannot run; a build of the
# test command is where they must.
require_tests() {
    for name in "$@"; do
        if ! (cd "$build" && ctest -N -R "^$name\$" | grep -q 'Total Tests: 1'); then
            echo "test: $name is not set up in $build (see scripts/install-deps.sh)" >&2
            exit 1
        fi
    done
}

for qt in 5 6; do
    build="build-test"
    [ "$qt" = 6 ] && build="build-test-qt6"
    cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAMO_WERROR=ON -DQT_MAJOR_VERSION="$qt"
    cmake --build "$build" --parallel "$jobs"
    cmake --build "$build" --target docs
    require_tests AbiCheck WindowsCompile
    (cd "$build" && ctest --output-on-failure --parallel "$jobs")
done

build="build-sanitize"
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAMO_WERROR=ON \
    -DCMAKE_CXX_COMPILER=clang++ -DKAMO_FUZZ=ON -DKAMO_BUILD_BENCH=OFF
cmake --build "$build" --parallel "$jobs"
(cd "$build" && ctest --output-on-failure --parallel "$jobs")
