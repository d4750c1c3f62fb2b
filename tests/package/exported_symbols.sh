#!/usr/bin/env bash
# The library's name is versioned, and it exports nothing but its own names, all of them listed.
#
# usage: exported_symbols.sh LIBRARY SONAME
set -euo pipefail

library=$1 soname=$2

# Mangled, since there the namespace comes first: functions and data, then tables and thunks.
own='_Z(T[VIST]|GV|T[hv][n0-9_]+)?Z?N[VKRO]*5zorby'
# Weak copies of the standard library's inline code, which every program and library may hold.
standard='[WVu] _Z(T[VIST]|GV)?Z?N?K?(S[absdiot]|9__gnu_cxx)'

readelf --dynamic "$library" | grep -qF "soname: [$soname]" || {
    echo "the SONAME isn't $soname:" >&2
    readelf --dynamic "$library" | grep SONAME >&2
    exit 1
}

symbols=$(nm --dynamic --defined-only "$library" | sed -E 's/^[0-9a-f]* *//')
grep -qE "^T $own" <<< "$symbols" || {
    echo "nothing of the library is exported" >&2
    exit 1
}
if foreign=$(grep -vE "^(. $own|$standard)" <<< "$symbols"); then
    printf 'exported, but not in namespace zorby:\n%s\n' "$foreign" | c++filt >&2
    exit 1
fi

# What programs link to changes only on purpose.
"$(dirname "${BASH_SOURCE[0]}")/../../tools/exported-symbols" "$library" --check
