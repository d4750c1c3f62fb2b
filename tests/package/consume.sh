#!/usr/bin/env bash
# Installs the library, builds the example against the installed copy by CMake and by pkg-config,
# and compares what the two programs write with the record that they should write.
#
# usage: consume.sh BUILD-FOLDER WORK-FOLDER COMPILER [COMPILER-FLAG...]
set -euo pipefail

build=$1 work=$2 compiler=$3
shift 3
flags=("$@")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
example=$here/../../examples/build-record
prefix=$work/prefix

fail() {
    echo "$*" >&2
    exit 1
}

install_library() {
    rm -rf "$work"
    mkdir -p "$work"
    cmake --install "$build" --prefix "$prefix" > "$work/install.log"
    libdir=$(dirname "$(find "$prefix" -name libzorby.so)")
}

build_by_cmake() {
    local generator
    generator=$(sed -n 's/^CMAKE_GENERATOR:INTERNAL=//p' "$build/CMakeCache.txt")
    cmake -G "$generator" -S "$example" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="${flags[*]}" > "$work/cmake.log"
    cmake --build "$work/cmake" >> "$work/cmake.log"
    cp "$work/cmake/build-record" "$work/by-cmake"
}

# What pkg-config says for the installed library, whatever prefix it was configured for.
zorby_flags() {
    PKG_CONFIG_PATH=$libdir/pkgconfig pkg-config --define-variable=prefix="$prefix" "$@" zorby
}

build_by_pkg_config() {
    # shellcheck disable=SC2046 # the flags are words
    "$compiler" "${flags[@]}" "$example/main.cpp" $(zorby_flags --cflags --libs) \
        -o "$work/by-pkg-config"
}

# All headers in one program, as a host with strict warnings might include them.
include_every_header() {
    local all=$work/all-headers.cpp
    (cd "$prefix/include" && find zorby -name '*.h' -not -path '*/detail/*' | sort) |
        sed 's/.*/#include <&>/' > "$all"
    [[ -s $all ]] || fail "no header was installed"
    # shellcheck disable=SC2046
    "$compiler" "${flags[@]}" $(zorby_flags --cflags) -fsyntax-only \
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Werror "$all"
}

write_record() {
    LD_LIBRARY_PATH=$libdir "$work/$1" > "$work/$1.mrc" || fail "$1 failed"
    cmp "$work/$1.mrc" "$here/record.mrc" || fail "$1 wrote another record"
}

# An independent reader finds in the record what the example put there.
read_back() {
    if command -v yaz-marcdump > /dev/null; then
        yaz-marcdump -f MARC-8 -t UTF-8 "$work/by-cmake.mrc" |
            diff - "$here/record.txt" || fail "yaz-marcdump reads another record"
    fi
}

install_library
build_by_cmake
build_by_pkg_config
include_every_header
write_record by-cmake
write_record by-pkg-config
read_back
