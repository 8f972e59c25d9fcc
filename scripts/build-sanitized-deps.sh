#!/bin/sh
# Builds shapelib and dxflib from the Debian source packages of the installed
# versions with clang, AddressSanitizer, UndefinedBehaviorSanitizer and
# libFuzzer coverage, so that a long fuzz run of our code also finds memory
# errors inside them and is guided by their branches. On demand only: neither
# the build nor scripts/test.sh runs it. See docs/fuzzing.md, section
# "Instrumented shapelib and dxflib".
#
#   scripts/build-sanitized-deps.sh [PREFIX]
#
# PREFIX defaults to build-sanitized-deps/prefix. It holds static libraries
# only, so a link cannot fall back to the uninstrumented shared ones, and
# pkg-config files with the system's module names, so PKG_CONFIG_PATH alone
# switches a build over. The source packages come through a private apt
# configuration in build-sanitized-deps/apt: the system's stays untouched.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
work=$root/build-sanitized-deps
prefix=${1:-$work/prefix}
mkdir -p "$prefix/lib/pkgconfig" "$prefix/include/dxflib" "$work/src"
prefix=$(cd "$prefix" && pwd)
flags="-fsanitize=address,undefined,fuzzer-no-link -g -O1 -fno-omit-frame-pointer -fPIC -w"

"$root/scripts/install-deps.sh" libshp-dev libdxflib-dev clang libclang-rt-dev dpkg-dev binutils

# Only deb-src entries for the mirror the system already uses; lists and
# downloads stay in the work folder.
apt=$work/apt
mkdir -p "$apt/sources.list.d" "$apt/lists/partial" "$apt/cache/archives/partial"
: >"$apt/sources.list"
if [ -f /etc/apt/sources.list.d/debian.sources ]; then
    sed 's/^Types:.*/Types: deb-src/' /etc/apt/sources.list.d/debian.sources \
        >"$apt/sources.list.d/debian.sources"
else
    sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$apt/sources.list"
fi
apt_src() {
    # Root's apt would hand downloads to the _apt user, who cannot write here.
    apt-get -q -o Dir::Etc::SourceList="$apt/sources.list" \
        -o Dir::Etc::SourceParts="$apt/sources.list.d" \
        -o Dir::State::Lists="$apt/lists" -o Dir::Cache="$apt/cache" \
        -o APT::Sandbox::User=root "$@"
}

# Sets src, version, upstream and dir for the source of binary package $1 and
# unpacks it with the Debian patches applied, unless that was done before.
# Files already in the download folder are reused when their checksums match,
# so one the mirror lacks can be put there by hand.
fetch() {
    src=$(dpkg-query -W -f='${source:Package}' "$1")
    version=$(dpkg-query -W -f='${source:Version}' "$1")
    upstream=${version#*:}
    upstream=${upstream%-*}
    dir=$work/src/$src-$version
    [ -d "$dir" ] && return
    apt_src update >/dev/null
    if ! (cd "$work/src" && apt_src source --download-only "$src=$version"); then
        echo "build-sanitized-deps: $src $version not downloaded: put the files its .dsc lists into $work/src and run again" >&2
        exit 1
    fi
    # Unpacked aside first, so that an interrupted run does not leave a tree
    # the next one would take as complete.
    rm -rf "$dir.new"
    dpkg-source -x "$work/src/${src}_${version#*:}.dsc" "$dir.new"
    mv "$dir.new" "$dir"
}

# A stamp per module, written last, names what it was built from and how, so
# that a run with nothing changed does nothing.
stamp() {
    echo "$src $version $flags $prefix"
}
built() {
    [ "$(cat "$work/$1.stamp" 2>/dev/null)" = "$(stamp)" ]
}

# Compiles the library's sources of $dir into lib$1.a in the prefix.
archive() {
    name=$1
    shift
    obj=$work/obj/$name
    rm -rf "$obj"
    mkdir -p "$obj"
    for f; do
        case $f in *.c) cc=clang ;; *) cc=clang++ ;; esac
        echo "build-sanitized-deps: $cc $name/$f" >&2
        # shellcheck disable=SC2086
        (cd "$dir" && $cc $flags -c "$f" -o "$obj/$(basename "${f%.*}").o")
    done
    rm -f "$prefix/lib/lib$name.a"
    ar rcs "$prefix/lib/lib$name.a" "$obj"/*.o
}

# Same module names, include layout and flags as the system's files; the C
# library's libm goes into Libs because CMake does not read Libs.private.
pc() {
    cat >"$prefix/lib/pkgconfig/$1.pc" <<EOF
prefix=$prefix
libdir=\${prefix}/lib
includedir=\${prefix}/include$2

Name: $1
Description: $3 (static, with AddressSanitizer, UBSan and libFuzzer coverage)
Version: $upstream
Libs: -L\${libdir} $4
Cflags: -I\${includedir}
EOF
    stamp >"$work/$1.stamp"
}

fetch libdxflib-dev
if ! built dxflib; then
    # shellcheck disable=SC2046
    archive dxflib $(cd "$dir" && echo src/*.cpp)
    cp "$dir"/src/*.h "$prefix/include/dxflib/"
    pc dxflib /dxflib "Library for reading dxf files" "-ldxflib"
fi
dxflib="$src $version"

fetch libshp-dev
if ! built shapelib; then
    # The library's own source list, as its build system has it.
    sources=$(sed -n 's/^libshp_la_SOURCES *= *//p' "$dir/Makefile.am")
    if [ -z "$sources" ]; then
        echo "build-sanitized-deps: no libshp_la_SOURCES in $dir/Makefile.am" >&2
        exit 1
    fi
    # shellcheck disable=SC2086
    archive shp $sources
    cp "$dir/shapefil.h" "$prefix/include/"
    pc shapelib "" "C API for processing ESRI Shapefiles" "-lshp -lm"
fi

echo "Instrumented $dxflib and $src $version in $prefix"
echo "Configure with: PKG_CONFIG_PATH=$prefix/lib/pkgconfig"
