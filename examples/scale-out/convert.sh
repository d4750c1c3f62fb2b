#!/usr/bin/env bash
# Converts one large file of ISO 2709 in parts, on all processors, and puts the results together in order.
#
# usage: convert.sh FILE OUTPUT [OPTION of quillory convert...]
#
# OUTPUT is of a form that can be put together: .mrc, .mrk or .jsonl. What was not written is kept in
# OUTPUT.rejects. BLOCK=64M makes larger parts than 32M; each is the work of one thread. The status is the worst
# of all parts.
set -euo pipefail

# shellcheck source=/dev/null
source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/parts.sh"

# The status of a part is kept: damage in one is no reason to stop the others.
# shellcheck disable=SC2154,SC2317 # parts.sh sets the folder, and calls this
convert_part() {
    local status=0
    "${QUILLORY:-quillory}" convert --quiet --jobs 1 "${@:3}" --rejects "$parts/$1.rejects" \
        -o "$parts/$1$2" || status=$?
    echo "$status" > "$parts/$1.status"
    ((status < 2))
}

(($# >= 2)) || die "usage: convert.sh FILE OUTPUT [OPTION...]"
file=$1 output=$2 ending=.${2##*.}
[[ $ending =~ ^\.(mrc|mrk|jsonl)$ ]] || die "$output: parts of $ending can't be put together"
make_folder_beside "$output"
run_on_parts "$file" convert_part "$ending" "${@:3}"
results_named "$ending" | xargs -r -d '\n' cat > "$parts/whole"
find "$parts" -name '*.rejects' -size +0 | sort -V | xargs -r -d '\n' cat > "$parts/all-rejects"
[[ ! -s $parts/all-rejects ]] || mv "$parts/all-rejects" "$output.rejects"
mv "$parts/whole" "$output"
exit "$(worst_status)"
