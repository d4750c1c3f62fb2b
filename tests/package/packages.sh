#!/usr/bin/env bash
# Makes the archive and, where Debian's tools are, the Debian packages; runs the programs of the archive
# from another folder, and looks into the packages.
#
# usage: packages.sh BUILD-FOLDER WORK-FOLDER
set -euo pipefail

build=$(realpath "$1") work=$(realpath -m "$2")

fail() {
    echo "$*" >&2
    exit 1
}

make_packages() {
    (cd "$build" && cpack -G "$1" -B "$work") > "$work/$1.log" 2>&1 || fail "$(cat "$work/$1.log")"
}

# Everything is in one folder, with a blank in its name, and knows where that is.
run_from_archive() {
    local folder="$work/any folder" quillory
    mkdir "$folder"
    tar -xzf "$work"/quillory-*.tar.gz -C "$folder" --strip-components=1
    quillory=$folder/bin/quillory
    run() { env -C / -i PATH="$PATH" HOME="$work" QUILLORY_HOME="$work/home" "$@"; }
    run "$quillory" describe 245 | grep -q '^245 (Title Statement)' || fail "no dictionary is found"
    run "$quillory" codes 008/35 | grep -q French || fail "no code lists are found"
    run "$quillory" new -w 1 --set 245a=Rivers -o "$work/new.mrc" || fail "no workforms are found"
    run "$quillory" cards "$work/new.mrc" -o "$work/cards.pdf" || fail "no pages are drawn"
    [[ $(run ldd "$quillory") == *"$folder"*libzorby.so* ]] || fail "another library is loaded"
    [[ ! -e $folder/bin/quillory-desk ]] ||
        run env QT_QPA_PLATFORM=offscreen "$folder/bin/quillory-desk" --version > "$work/desk.txt" 2>&1
    (cd "$folder" && find . -type f | sed 's|^\./||' | sort) > "$work/archive.txt"
}

# What the documents link to is installed with them.
follow_links() {
    local page link
    while IFS= read -r page; do
        while IFS= read -r link; do
            [[ -e $(dirname "$page")/$link ]] || fail "$page: $link is not there"
        done < <(grep -o ']([^)#]*' "$page" | sed 's/^](//' | grep -v -e '://' -e '^$' -e ' ')
    done < <(find "$work/any folder/share/doc" -name '*.md')
}

# Each file of the archive is in one package, and nothing else but what Debian asks for.
look_into_packages() {
    local package
    for package in "$work"/*.deb; do
        dpkg-deb --fsys-tarfile "$package" | tar -t | grep -v '/$'
    done | sed 's|^\./usr/||; s|^usr/||; s|\(man1/.*\)\.gz$|\1|; s|vendor-completions|site-functions|' |
        grep -Ev '^share/doc/[^/]*/(copyright|changelog\.gz)$' | sort > "$work/packages.txt"
    # Links count among the files of a package.
    (cd "$work/any folder" && find . -type l | sed 's|^\./||') | sort - "$work/archive.txt" |
        diff - "$work/packages.txt" || fail "the packages and the archive differ"
    for package in "$work"/quillory_*.deb; do
        [[ $(dpkg-deb -f "$package" Depends) == *libzorby0.*libc6* ]] ||
            fail "$package: no dependencies"
    done
    for package in "$work"/*.deb; do
        ! dpkg-deb --ctrl-tarfile "$package" | tar -t | grep -E '(post|pre)(inst|rm)' ||
            fail "$package: a script, where triggers do the work"
    done
    [[ $(dpkg-deb --ctrl-tarfile "$work"/libzorby0*.deb | tar -xO ./triggers) == *ldconfig ]] ||
        fail "the system does not learn of the library"
    ! command -v lintian > /dev/null || lintian --allow-root --fail-on error "$work"/*.deb
}

rm -rf "$work"
mkdir -p "$work"
make_packages TGZ
run_from_archive
follow_links
if command -v dpkg-shlibdeps > /dev/null; then
    make_packages DEB
    look_into_packages
fi
