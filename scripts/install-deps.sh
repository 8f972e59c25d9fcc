#!/bin/sh
# Installs the Debian packages the build, the tests and the fixture generators
# need. Safe to run again: when everything is present it does nothing (no
# apt-get update, no network). Works as root or through sudo. Other scripts
# pass the packages only they need as arguments.
set -eu

# clang with its sanitizer and libFuzzer runtimes and llvm's symbolizer:
# the test command's second build. pkg-config finds shapelib and dxflib;
# libssl-dev brings libcrypto, which hashes the backups' manifests;
# doxygen and graphviz build the API reference; help2man writes the
# programs' manual pages and lintian checks the Debian packages.
# abigail-tools (abidw, abidiff) compares the libraries' ABI with abi/.
# Qt 6 with its compatibility module (QTextCodec) and its lrelease is the
# test command's third build; the mingw cross compiler checks that the
# sources compile for Windows.
packages="build-essential cmake pkg-config clang-format file doxygen graphviz help2man lintian abigail-tools
clang libclang-rt-14-dev llvm g++-mingw-w64-x86-64-posix
qtbase5-dev qttools5-dev-tools qttranslations5-l10n
qt6-base-dev qt6-5compat-dev qt6-tools-dev qt6-l10n-tools qt6-translations-l10n qt6-qpa-plugins
libshp-dev libdxflib-dev libdtl-dev libproj-dev proj-data proj-bin libssl-dev
gdal-bin python3-ezdxf librecad-data
xvfb xauth"
if [ $# -gt 0 ]; then
    packages="$*"
fi

missing=""
for p in $packages; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing="$missing $p"
    fi
done

[ -z "$missing" ] && exit 0

if [ "$(id -u)" -eq 0 ]; then
    sudo=""
elif command -v sudo >/dev/null 2>&1; then
    sudo="sudo"
else
    echo "install-deps: missing packages:$missing" >&2
    echo "install-deps: run this script as root to install them" >&2
    exit 1
fi

echo "install-deps: installing$missing" >&2
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -q
# shellcheck disable=SC2086
$sudo apt-get install -y -q --no-install-recommends $missing
