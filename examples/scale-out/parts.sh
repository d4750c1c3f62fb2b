# shellcheck shell=bash
# What convert.sh and check.sh share: a file is divided after record terminators (0x1D), and a command runs on each
# part, as many at once as there are processors.

die() {
    echo "${0##*/}: $*" >&2
    exit 2
}

# A folder beside a file, so that what is made in it can take the file's name; gone when the script ends.
make_folder_beside() {
    parts=$(mktemp -d "$(dirname "$1")/parts.XXXXXX") || exit 2
    trap 'rm -rf "$parts"' EXIT
    export parts
}

# run_on_parts FILE FUNCTION [ARGUMENT...]: the function gets the number of the part and the arguments, and the
# part on standard input. Its messages are marked with the number of the part.
run_on_parts() {
    local file=$1
    command -v parallel > /dev/null || die "GNU parallel is missing; as root: apt-get install parallel"
    export -f "${2?}"
    PARALLEL_SHELL=$(command -v bash) parallel --will-cite --quote --pipe --recend $'\x1d' \
        --block "${BLOCK:-32M}" --tagstring 'part {#}:' "$2" '{#}' "${@:3}" < "$file" ||
        die "a part could not be done"
}

# The parts' results in order: results_named ENDING
results_named() {
    local part
    for ((part = 1; ; ++part)); do
        [[ -e $parts/$part$1 ]] || break
        printf '%s\n' "$parts/$part$1"
    done
}

# The worst status with which quillory ended on a part.
worst_status() {
    cat "$parts"/*.status | sort -n | tail -n 1
}
