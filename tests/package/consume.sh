#!/usr/bin/env bash
# Installs the library, builds the examples against the installed copy by CMake and by pkg-config,
# and compares what the programs write with the records that they should write.
#
# usage: consume.sh BUILD-FOLDER WORK-FOLDER COMPILER [COMPILER-FLAG...]
set -euo pipefail

build=$1 work=$2 compiler=$3
shift 3
flags=("$@")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
examples=$here/../../examples
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
    local example=$1 generator
    generator=$(sed -n 's/^CMAKE_GENERATOR:INTERNAL=//p' "$build/CMakeCache.txt")
    cmake -G "$generator" -S "$examples/$example" -B "$work/cmake-$example" \
        -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_CXX_FLAGS="${flags[*]}" > "$work/cmake.log"
    cmake --build "$work/cmake-$example" >> "$work/cmake.log"
    cp "$work/cmake-$example/$example" "$work/$example-by-cmake"
}

# What pkg-config says for the installed library, wherever it has been put.
zorby_flags() {
    PKG_CONFIG_PATH=$libdir/pkgconfig pkg-config "$@" zorby
}

build_by_pkg_config() {
    # shellcheck disable=SC2046 # the flags are words
    "$compiler" "${flags[@]}" "$examples/$1/main.cpp" $(zorby_flags --cflags --libs) \
        -o "$work/$1-by-pkg-config"
}

# The titles in the records of the other examples, and a record that is cut short.
read_titles() {
    local program=$work/read-titles-by-$1
    { cat "$here/build-record.mrc" "$here/host.mrc" && head -c 50 "$here/host.mrc"; } > "$work/three.mrc"
    ! LD_LIBRARY_PATH=$libdir "$program" "$work/three.mrc" &> "$program.txt" ||
        fail "read-titles takes a record that is cut short for whole"
    printf '%s\n' 'Faust :' 'Faust.' 'record 3, byte 50: cut short: no record terminator (0x1D)' | diff - "$program.txt" ||
        fail "read-titles printed something else"
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

# Runs an example and compares what it writes with the record of its name.
write_record() {
    local program=$1-by-$2
    LD_LIBRARY_PATH=$libdir "$work/$program" > "$work/$program.mrc" 2> "$work/$program.txt" ||
        fail "$program failed: $(cat "$work/$program.txt")"
    cmp "$work/$program.mrc" "$here/$1.mrc" || fail "$program wrote another record"
}

# An independent reader finds in the record what the example put there.
read_back() {
    if command -v yaz-marcdump > /dev/null; then
        yaz-marcdump -f MARC-8 -t UTF-8 "$work/$1-by-cmake.mrc" |
            diff - "$here/$1.txt" || fail "yaz-marcdump reads another record"
    fi
}

# The folder of the data files, as the two package systems and the library name it.
check_data_folder() {
    local folder
    folder=$(realpath "$(zorby_flags --variable=datafolder)")
    [[ -f $folder/MARCBibl.tfm ]] || fail "pkg-config names no folder of data files: $folder"
    grep -qF "data files: $folder" "$work/cmake.log" || fail "CMake names another folder"
    grep -qF "(245)" "$work/host-by-cmake.txt" || fail "the host has no dictionary"
}

install_library
build_by_cmake read-titles
read_titles cmake
build_by_pkg_config read-titles
read_titles pkg-config
for example in build-record host; do
    # A host needs the data files, which are installed with the program.
    [[ $example == host && ! -d $prefix/share/quillory ]] && continue
    build_by_cmake "$example"
    build_by_pkg_config "$example"
    write_record "$example" cmake
    write_record "$example" pkg-config
    read_back "$example"
done
[[ -d $prefix/share/quillory ]] && check_data_folder
include_every_header
